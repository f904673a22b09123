#pragma once

// The driver manager's headers; on Windows they stand on <windows.h>, which CMake puts in front.
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

static_assert(sizeof(SQLWCHAR) == 2, "text crosses as UTF-16");
