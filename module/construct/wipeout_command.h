#pragma once
#include "frame/command_object.h"

/// The command Wipeout: polygons that mask what lies behind them, and whether their edges are shown.
class CWipeoutCmd : public CQkUnknownImpl<ICmdProcess> {
public:
  CMD_RUNSTATUS Run() override;

protected:
  ~CWipeoutCmd() = default;
};
