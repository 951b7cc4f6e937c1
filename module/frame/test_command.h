#pragma once
#include "command_object.h"

/// The command ElxTest: shows that text input works by printing what was typed.
class TestCmd : public CQkUnknownImpl<ICmdProcess> {
public:
  CMD_RUNSTATUS Run() override;

protected:
  ~TestCmd() = default;
};
