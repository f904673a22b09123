// A companion library without any of the functions that are asked of it.
#include "companion/include/qrvutil.h"

extern "C" QRV_EXPORT int32_t QRV_CALL qrvNothingOfUse() {
  return 0;
}
