#pragma once
// The bytes of a drawing file on their way out.
#include "OdPlatform.h"
#include <functional>
#include <memory>
#include <string>
#include <string_view>

/// How a file lays its groups out.
struct DxfStyle {
  enum class Form : OdUInt8 {
    kAscii,
    kBinary,           ///< group codes of two bytes
    kBinaryShortCodes, ///< of one byte, until R12
  };
  Form form = Form::kAscii;
  std::string_view lineEnd = "\r\n"; ///< ASCII
  bool paddedCodes = true;           ///< ASCII: codes right-aligned to three places
};

/// Lays groups out and collects what is written into large pieces. Slices of a file that is being copied are
/// joined while they follow one another, so that what nobody changed goes out in one piece.
class DxfOutput {
public:
  using Sink = std::function<void(std::string_view)>;
  static std::unique_ptr<DxfOutput> create(Sink sink, const DxfStyle& style);
  virtual ~DxfOutput() = default;

  /// Bytes that outlive the output.
  void slice(std::string_view bytes);

  // --- groups; texts are in the file's encoding ---
  virtual void text(int code, std::string_view value) = 0;
  virtual void integer(int code, OdInt64 value) = 0;
  /// Shortest digits that read back the same.
  virtual void real(int code, double value) = 0;
  /// Binary data as hexadecimal digits. Throws eInvalidInput for anything else, and for more than a group of
  /// the form can hold.
  virtual void chunk(int code, std::string_view digits) = 0;
  void handle(int code, OdUInt64 value);

  /// Hands everything to the sink.
  void finish();

protected:
  explicit DxfOutput(Sink sink) : m_sink(std::move(sink)) {}
  void put(std::string_view bytes) { m_buffer += bytes; }
  void put(char byte) { m_buffer += byte; }
  void beginGroup() { flushSlice(); }
  void endGroup() {
    if (m_buffer.size() >= kPiece) flushBuffer();
  }

private:
  void flushSlice();
  void flushBuffer();

  static constexpr std::size_t kPiece = std::size_t{1} << 18;
  Sink m_sink;
  std::string m_buffer;
  std::string_view m_slice;
};
