#pragma once
#include "IQkUnknown.h"
#include "QkVariant.h"

/// One section of the profile.
class IProfileKey : public IQkUnknown {
public:
  virtual void Reserved3() {}
  virtual void Reserved4() {}
  virtual void Reserved5() {}
  virtual void Reserved6() {}
  virtual void Reserved7() {}
  /// Slot 8. Reads a value; false, with `value` left alone, when the section has none of that name.
  virtual bool Read(const wchar_t* name, CQkVariant& value) = 0;
  /// Slot 9. Writes a value, which is on the disk when the call returns true.
  virtual bool Write(const wchar_t* name, const CQkVariant& value) = 0;

protected:
  ~IProfileKey() = default;
};

/// The host's settings: sections, named by paths with backslashes such as "Dialogs\EAttEdit", that hold named
/// values. Names of sections and values are compared without regard to case.
class IProfile : public IQkUnknown {
public:
  virtual void Reserved3() {}
  /// Slot 4. The section of that path, with a reference; null when there is none and `create` is 0.
  virtual IProfileKey* OpenKey(const wchar_t* path, int create) = 0;

protected:
  ~IProfile() = default;
};
