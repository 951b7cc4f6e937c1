// The same work with dxflib, which calls back for each entity and keeps no drawing.
//   peer_dxflib open IN            keeps block references, attributes and geometry in lists
//   peer_dxflib extract IN OUT     and writes a line for each attribute of model space: block, tag, value
#include <dxflib/dl_creationadapter.h>
#include <dxflib/dl_dxf.h>
#include <fstream>
#include <iostream>
#include <string_view>
#include <vector>

namespace {

class Lists : public DL_CreationAdapter {
public:
  struct Attribute {
    std::size_t reference;
    DL_AttributeData data;
  };
  std::vector<DL_InsertData> references;
  std::vector<Attribute> attributes;
  std::vector<DL_LineData> lines;
  std::vector<DL_CircleData> circles;
  std::vector<DL_ArcData> arcs;
  std::vector<DL_VertexData> vertices;

  void addBlock(const DL_BlockData&) override { m_inBlock = true; }
  void endBlock() override { m_inBlock = false; }
  void addInsert(const DL_InsertData& data) override { references.push_back(data); }
  void addAttribute(const DL_AttributeData& data) override {
    if (!m_inBlock && !references.empty()) attributes.push_back({references.size() - 1, data});
  }
  void addLine(const DL_LineData& data) override { lines.push_back(data); }
  void addCircle(const DL_CircleData& data) override { circles.push_back(data); }
  void addArc(const DL_ArcData& data) override { arcs.push_back(data); }
  void addVertex(const DL_VertexData& data) override { vertices.push_back(data); }

private:
  bool m_inBlock = false;
};

} // namespace

int main(int argc, char** argv) {
  const std::string_view task = argc > 2 ? argv[1] : "";
  if ((task != "open" || argc != 3) && (task != "extract" || argc != 4)) {
    std::cerr << "usage: peer_dxflib open IN | peer_dxflib extract IN OUT\n";
    return 2;
  }
  Lists lists;
  if (!DL_Dxf().in(argv[2], &lists)) return 1;
  std::cout << lists.references.size() << " references, " << lists.attributes.size() << " attributes\n";
  if (task == "open") return 0;
  std::ofstream out(argv[3], std::ios::binary);
  for (const Lists::Attribute& attribute : lists.attributes)
    out << "'" << lists.references[attribute.reference].name << "','" << attribute.data.tag << "','"
        << attribute.data.text << "'\n";
  out.close();
  return out ? 0 : 1;
}
