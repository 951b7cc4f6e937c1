// make_big_drawing N OUT [R2018|R2000]
//   Writes a drawing of N block references with 8 attributes each, and prints the tags of the attributes.
#include "big_drawing.h"
#include <charconv>
#include <cstring>
#include <fstream>
#include <iostream>

int main(int argc, char** argv) {
  BigDrawing description;
  const bool counted =
      argc > 1 && std::from_chars(argv[1], argv[1] + std::strlen(argv[1]), description.references).ptr ==
                      argv[1] + std::strlen(argv[1]);
  const std::string release = argc > 3 ? argv[3] : "R2018";
  if (argc < 3 || argc > 4 || !counted || (release != "R2018" && release != "R2000")) {
    std::cerr << "usage: make_big_drawing N OUT [R2018|R2000]\n";
    return 2;
  }
  if (release == "R2000") description.release = BigDrawing::Release::r2000;
  std::ofstream out(argv[2], std::ios::binary);
  writeBigDrawing(description, out);
  out.close();
  if (!out) {
    std::cerr << "make_big_drawing: " << argv[2] << " cannot be written\n";
    return 1;
  }
  for (const std::string& tag : bigDrawingTags(description)) std::cout << tag << '\n';
}
