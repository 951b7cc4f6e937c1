#pragma once
#include "frame/command_object.h"

/// The command Divide: points or blocks at equal distances along a curve.
class CDivideCmd : public CQkUnknownImpl<ICmdProcess> {
public:
  CMD_RUNSTATUS Run() override;

protected:
  ~CDivideCmd() = default;
};
