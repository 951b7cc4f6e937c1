#pragma once
// Compares a file that was just written with the drawing it was written from.
#include "DxfStoreWriter.h"
#include "DxfText.h"
#include <functional>

/// Throws OdError_FileException that names the first line that does not read back as the drawing has it.
/// `passed` is called now and then with a place before which the text is no longer needed.
void dxfVerify(const OdDbStore& store, const DxfStoreWriter& writer, const std::shared_ptr<DxfText>& text,
               const std::function<void(const char*)>& passed);
