/* The C ABI of the companion library VhwLogonCtrl: what the console requires of any library in its place. On
 * 32-bit Windows the calling convention is stdcall. Called from one thread of the console. */
#ifndef VARNHOLD_VHWLOGONCTRL_H
#define VARNHOLD_VHWLOGONCTRL_H

#include "qrvutil.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Gives the account of the binary SID the right to log on as a service on a computer ("NAME" or "\\NAME",
 * empty for this one); system is UTF-16 closed by a NUL. 0 when the account holds the right now. */
#if defined(__cplusplus)
QRV_EXPORT int32_t QRV_CALL fnLogRight(const char16_t* system, uint8_t* sid);
#else
QRV_EXPORT int32_t QRV_CALL fnLogRight(const uint16_t* system, uint8_t* sid);
#endif

#ifdef __cplusplus
}
#endif

#endif
