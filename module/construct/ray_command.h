#pragma once
#include "frame/command_object.h"

/// The command Ray: rays from one start point, each through a point of its own.
class CRayCmd : public CQkUnknownImpl<ICmdProcess> {
public:
  CMD_RUNSTATUS Run() override;

protected:
  ~CRayCmd() = default;
};
