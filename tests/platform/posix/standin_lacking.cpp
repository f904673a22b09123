// A library of the companion's name that has none of its functions.
#include "companion/include/qrvutil.h"

extern "C" QRV_EXPORT int qrvNothing();
extern "C" int qrvNothing() {
  return 0;
}
