/* What the stand-in library gives the tests beside the companion's functions. */
#pragma once

#include "companion/include/qrvhost.h"
#include "companion/include/vhwlogonctrl.h"

extern "C" {

QRV_EXPORT void standinReset();
QRV_EXPORT const char* standinCallLog();
QRV_EXPORT void standinSetShare(const char* folder);
/* A thread that has ended with this code; 259 makes one that never ends. */
QRV_EXPORT QrvThread standinStartThread(uint32_t exitCode);
}
