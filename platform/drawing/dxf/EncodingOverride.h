#pragma once
// Reading texts in an encoding that the user names instead of the one that the file tells, so that the
// drawing, once saved, tells it right and needs no naming any more.
#include "DbStore.h"
#include "DxfReader.h"
#include "DxfText.h"

/// A drawing file as it is going to be read.
struct DxfImage {
  std::shared_ptr<void> owner; ///< keeps the bytes alive
  std::string_view bytes;
  OdString encoding; ///< in which to read them instead of the one that they tell; empty: theirs
};

/// The file with its texts in an encoding that its release allows. Where the user names UTF-8 for a drawing
/// before 2007, or anything else for a later one, that is a copy with every text converted; a record that
/// nobody changes would otherwise be saved in one encoding and a changed one in another. Lines keep their
/// numbers. Characters that the code page of the header lacks become \U+XXXX. Any other file stays as it is.
/// Throws eInvalidInput for a binary file that would have to be converted. `text` holds the same bytes.
DxfImage dxfConvertedImage(const DxfImage& asStored, const DxfText& text);

/// To be called when the file, `asStored` on the disk, has been read. Makes the header name the code page in
/// which an unconverted drawing before 2007 was read, and hands the notes of dxfCheckText to the reader's
/// caller.
void dxfSettleEncoding(OdDbStore& store, const DxfText& asStored, const OdDbDxfReadOptions& options);
