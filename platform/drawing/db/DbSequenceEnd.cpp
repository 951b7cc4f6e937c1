#include "DbSequenceEnd.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbSequenceEnd, OdDbEntity, "SEQEND")
