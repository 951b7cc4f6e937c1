#pragma once
#include "OdPlatform.h"

class HostEdInput;
class OdDbDatabase;

/// An open drawing.
class HostDocument {
public:
  /// Slot 0. The working database. No reference is added.
  virtual OdDbDatabase* Database() = 0;
  virtual void Reserved1() {}
  virtual void Reserved2() {}
  /// Slot 3. The editor of the drawing; it lives as long as the drawing is open.
  virtual HostEdInput* Editor() = 0;
  /// Slot 4. The path of the drawing file; for a drawing that was never saved, the name it is shown under.
  /// Valid until the drawing is saved or closed.
  virtual const OdChar* FilePath() = 0;

protected:
  ~HostDocument() = default;
};

/// The root object of the host's services.
class HostRoot {
public:
  /// Slot 0. The current drawing, or null.
  virtual HostDocument* CurrentDocument() = 0;

protected:
  ~HostRoot() = default;
};
