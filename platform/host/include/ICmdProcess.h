#pragma once
#include "IQkUnknown.h"

/// How far the run of a command has come.
enum CMD_RUNSTATUS : int {
  kCmdCompleted = 0,  ///< the user finished normally
  kCmdCancelled = 1,  ///< cancelled or failed
  kCmdInProgress = 2, ///< running; the first thing that a run stores
};

/// A command object. The host makes one through the registered creator, runs it once, asks its status and
/// releases it.
class ICmdProcess : public IQkUnknown {
public:
  /// Slot 3. Performs the command and returns its final status.
  virtual CMD_RUNSTATUS Run() = 0;
  /// Slot 4. The status of the last run; kCmdCompleted before the first.
  virtual CMD_RUNSTATUS Status() { return kCmdCompleted; }
  /// Slots 5 and 6: constants that every command answers in the same way.
  virtual int Reserved5() { return 0; }
  virtual int Reserved6() = 0;
  /// Slot 7. Gives the attached object, with a reference; false when there is none.
  virtual bool GetContext(IQkUnknown** context) = 0;
  /// Slot 8. Attaches an object, or none for null; the command keeps a reference.
  virtual bool SetContext(IQkUnknown* context) = 0;
  /// Slot 9. Ends the object; its memory is given back when `free` is true.
  virtual void Destroy(bool free) = 0;

protected:
  ~ICmdProcess() = default;
};

/// Makes a command object with one reference and stores it in `out`; null there means that memory ran out.
/// Returns true in both cases.
using CmdCreator = bool (*)(ICmdProcess** out);
