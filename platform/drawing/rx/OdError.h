#pragma once
#include "OdString.h"
#include <exception>

class OdRxClass;

/// Result codes of the library. The numbers of codes that callers test for are fixed.
enum OdResult {
  eOk = 0,
  eNotImplementedYet = 1,
  eNotApplicable = 2,
  eInvalidInput = 3,
  eOutOfMemory = 6,
  eInvalidIndex = 10,
  eNullObjectPointer = 11,
  eNullObjectId = 12,
  eNotThatKindOfClass = 20,
  eUnknownHandle = 21,
  eHandleExists = 22,
  eDuplicateKey = 23,
  eDuplicateRecordName = 24,
  eKeyNotFound = 25,
  eAlreadyInDb = 30,
  eNoDatabase = 31,
  eNotInDatabase = 32,
  eWrongDatabase = 33,
  eWasErased = 34,
  eNotErased = 35,
  eNotOpenForRead = 40,
  eNotOpenForWrite = 41,
  eInvalidOwnerObject = 45,
  eNoActiveTransactions = 50,
  eNothingToUndo = 51,
  eDegenerateGeometry = 60,
  eInvalidExtents = 61,
  eNonInvertibleMatrix = 62,
  eCannotScaleNonUniformly = 137,
  eFileNotFound = 200,
  eFileAccessErr = 201,
  eFileWriteError = 202,
  eDxfReadError = 203,
  eNotSupportedFormat = 204,
  eUserBreak = 210,
};

/// The exception of the library: a code and a sentence that a user can read.
class OdError : public std::exception {
public:
  explicit OdError(OdResult code);
  OdError(OdResult code, OdString description);
  OdResult code() const { return m_code; }
  const OdString& description() const { return m_description; }
  /// The description in UTF-8.
  const char* what() const noexcept override { return m_what.c_str(); }

private:
  OdResult m_code;
  OdString m_description;
  std::string m_what;
};

/// An object was not of the class that the caller required.
class OdError_NotThatKindOfClass : public OdError {
public:
  OdError_NotThatKindOfClass(const OdRxClass* from, const OdRxClass* to);
};

/// An index lay outside its container.
class OdError_InvalidIndex : public OdError {
public:
  OdError_InvalidIndex() : OdError(eInvalidIndex) {}
};

/// A file could not be read or written; the description names the file, the place and the reason.
class OdError_FileException : public OdError {
public:
  OdError_FileException(OdResult code, OdString description) : OdError(code, std::move(description)) {}
};
