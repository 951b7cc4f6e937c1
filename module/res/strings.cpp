#include "strings.h"
#include "embedded.h"
#include "resource_file.h"

OdString res::loadString(unsigned number) { return stringFrom(embedded(), number); }
