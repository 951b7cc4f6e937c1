#include "OdError.h"
#include "RxObject.h"

namespace {

const OdChar* sentence(OdResult code) {
  switch (code) {
  case eOk: return L"No error.";
  case eNotImplementedYet: return L"This operation is not available.";
  case eNotApplicable: return L"This operation does not apply to the object.";
  case eInvalidInput: return L"A given value is not valid.";
  case eOutOfMemory: return L"There is not enough memory.";
  case eInvalidIndex: return L"An index lies outside its range.";
  case eNullObjectPointer: return L"An object is required but none was given.";
  case eNullObjectId: return L"The object identifier is null.";
  case eNotThatKindOfClass: return L"The object is not of the required class.";
  case eUnknownHandle: return L"No object has this handle.";
  case eHandleExists: return L"Another object already has this handle.";
  case eDuplicateKey: return L"The key already exists.";
  case eDuplicateRecordName: return L"A record of this name already exists.";
  case eKeyNotFound: return L"The key was not found.";
  case eAlreadyInDb: return L"The object is already in a drawing.";
  case eNoDatabase: return L"There is no drawing to work on.";
  case eNotInDatabase: return L"The object is not in a drawing.";
  case eWrongDatabase: return L"The object belongs to another drawing.";
  case eWasErased: return L"The object was erased.";
  case eNotErased: return L"The object is not erased.";
  case eNotOpenForRead: return L"The object is not open for reading.";
  case eNotOpenForWrite: return L"The object is not open for writing.";
  case eInvalidOwnerObject: return L"The object cannot belong to this owner.";
  case eNoActiveTransactions: return L"No transaction is active.";
  case eNothingToUndo: return L"There is nothing to undo.";
  case eDegenerateGeometry: return L"The geometry is degenerate: a length, direction or plane is missing.";
  case eInvalidExtents: return L"The extents are empty.";
  case eNonInvertibleMatrix: return L"The transformation cannot be inverted.";
  case eCannotScaleNonUniformly: return L"The object cannot be scaled by different factors along its axes.";
  case eFileNotFound: return L"The file was not found.";
  case eFileAccessErr: return L"The file could not be opened.";
  case eFileWriteError: return L"The file could not be written.";
  case eDxfReadError: return L"The drawing file is damaged.";
  case eNotSupportedFormat: return L"The file format or version is not supported.";
  case eUserBreak: return L"The user cancelled the operation.";
  }
  return L"An unknown error occurred.";
}

OdString nameOf(const OdRxClass* cls) { return cls ? cls->name() : OdString(L"(none)"); }

} // namespace

OdError::OdError(OdResult code) : OdError(code, sentence(code)) {}

OdError::OdError(OdResult code, OdString description)
    : m_code(code), m_description(std::move(description)), m_what(m_description.toUtf8()) {}

OdError_NotThatKindOfClass::OdError_NotThatKindOfClass(const OdRxClass* from, const OdRxClass* to)
    : OdError(eNotThatKindOfClass, L"An object of class " + nameOf(from) + L" was given where class " +
                                       nameOf(to) + L" is required.") {}
