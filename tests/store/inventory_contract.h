#pragma once

/// What `Connection`, `Command` and `Recordset` promise on every engine: included by one small file for each.
#include "tests/store/contract_editing.h"
#include "tests/store/contract_groups.h"
#include "tests/store/contract_reading.h"
#include "tests/store/contract_statements.h"
