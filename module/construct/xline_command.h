#pragma once
#include "frame/command_object.h"

/// The command XLINE: construction lines through a start point, along the axes of the current coordinate
/// system, at an angle, halving angles, or beside other lines.
class CXLineCmd : public CQkUnknownImpl<ICmdProcess> {
public:
  CMD_RUNSTATUS Run() override;

protected:
  ~CXLineCmd() = default;
};
