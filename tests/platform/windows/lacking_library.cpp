// A library in the place of qrvUtil that has nothing of it but one function.
#include "companion/include/qrvutil.h"

int32_t QRV_CALL qrvGetSystemIPAddress(char*, char*) {
  return 0;
}
