#pragma once
#include "frame/command_object.h"

/// The command AttExt: extracts the attributes of selected block references into a file.
class AttExtCmd : public CQkUnknownImpl<ICmdProcess> {
public:
  CMD_RUNSTATUS Run() override;

protected:
  ~AttExtCmd() = default;
};
