#pragma once

#include <functional>
#include <string>

#include "store/connection.h"

namespace varnhold::store {

/// Does the dotted address belong to the subnet "a.b.c.0"? Either may be empty. An error that it raises
/// counts as no.
using BelongsToSubnet = std::function<bool(const std::string& address, const std::string& subnet)>;

/// Fills `System_Group` from the rules of all groups with `Auto` = 0: the computers of the rule's class, and
/// those of its subnet. Adds what is missing and never takes a member out. A statement that fails is passed
/// over, so that its rows are not added; always true.
bool RefreshAutoGroups(Connection& connection, const BelongsToSubnet& belongsToSubnet);

}  // namespace varnhold::store
