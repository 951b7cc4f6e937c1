#include "DbPlaceHolder.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbPlaceHolder, OdDbObject, "ACDBPLACEHOLDER")
