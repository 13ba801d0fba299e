// Planted: an include that runs back up, and Qt in the core.
#include "low/Low.h"

#include <QString>

#include "high/High.h"

int Low() {
    return High() - 1;
}
