#pragma once
// An object of a drawing is the sequence of its groups: pairs of a code and a value, as drawing files store
// them. Everything else (typed properties, files, undo, clones, objects that the library has no class for)
// works on this one form, which is why nothing that a file holds can get lost.
#include "DbHandle.h"
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <forward_list>
#include <string>
#include <string_view>
#include <vector>

enum class OdDbGroupKind : OdUInt8 { kText, kReal, kInteger, kBool, kHandle, kBinary };

/// The kind of value that a group code carries.
OdDbGroupKind odDbGroupKind(int code);
/// Whether the code refers to another object (pointers and owners; 320 to 329 are plain handles and do not).
bool odDbIsReference(int code);

/// Decodes the text of one drawing file.
class OdDbTextCodec {
public:
  virtual ~OdDbTextCodec() = default;
  /// Text as a user reads it: code page, \U+XXXX, \M+nXXXX and ^ escapes resolved. Bytes that do not belong
  /// to the code page become U+DC80 to U+DCFF, from which the writer restores them.
  virtual OdString decode(std::string_view bytes) const = 0;
};

/// One group. Text is a view: into the file image of the drawing (in the file's encoding), or into the list
/// that holds the group (`kOwned`, then always UTF-8, in which the surrogates of undecodable bytes are kept).
struct OdDbGroup {
  enum Flags : OdUInt8 { kNone = 0, kOwned = 1, kOwnHandle = 2, kOwner = 4 };
  OdInt16 code = 0;
  OdDbGroupKind kind = OdDbGroupKind::kText;
  OdUInt8 flags = kNone;
  OdUInt32 size = 0;
  union {
    const char* text;
    double real;
    OdInt64 integer;
    OdUInt64 handle;
  };
  OdDbGroup() : text(nullptr) {}

  std::string_view bytes() const { return {text, size}; }
  /// The group that stands for the object's own handle, or for its owner; the value is the object's, not the
  /// group's.
  bool isIdentity() const { return (flags & (kOwnHandle | kOwner)) != 0; }
  bool isText() const { return kind == OdDbGroupKind::kText || kind == OdDbGroupKind::kBinary; }

  static OdDbGroup ofReal(int code, double value);
  static OdDbGroup ofInteger(int code, OdInt64 value);
  static OdDbGroup ofHandle(int code, OdUInt64 value);
  /// Borrows the bytes, which must outlive the list that the group goes to.
  static OdDbGroup ofBytes(int code, std::string_view bytes);
};

/// The groups of one object, shared between the object and the undo log until one of them changes.
class OdDbGroupList {
public:
  OdDbGroupList() = default;
  OdDbGroupList(const OdDbGroupList& other);
  OdDbGroupList& operator=(const OdDbGroupList&) = delete;

  std::vector<OdDbGroup> items;
  /// Decodes borrowed text; null when all text is owned. Lives as long as the drawing.
  const OdDbTextCodec* codec = nullptr;

  int size() const { return static_cast<int>(items.size()); }
  const OdDbGroup& operator[](int index) const { return items[static_cast<std::size_t>(index)]; }
  OdDbGroup& operator[](int index) { return items[static_cast<std::size_t>(index)]; }

  OdString text(int index) const { return text((*this)[index]); }
  OdString text(const OdDbGroup& group) const;
  /// A text group whose bytes this list owns.
  OdDbGroup makeText(int code, const OdString& value);
  OdDbGroup makeBytes(int code, std::string_view utf8);
  void insert(int index, const OdDbGroup& group) { items.insert(items.begin() + index, group); }
  void append(const OdDbGroup& group) { items.push_back(group); }
  void erase(int first, int last) { items.erase(items.begin() + first, items.begin() + last); }
  /// Copies all borrowed text, so that the list no longer depends on the drawing it was read from.
  void own();

private:
  friend void intrusive_ptr_add_ref(OdDbGroupList* list) { ++list->m_references; }
  friend void intrusive_ptr_release(OdDbGroupList* list) {
    if (--list->m_references == 0) delete list;
  }
  friend long useCount(const OdDbGroupList& list) { return list.m_references; }
  std::string_view keep(std::string_view bytes);

  std::forward_list<std::string>
      m_texts; // stable addresses, and nothing allocated while all text is borrowed
  std::size_t m_textCount = 0;
  long m_references = 0;
};
using OdDbGroupListPtr = boost::intrusive_ptr<OdDbGroupList>;
