#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace varnhold::fakes {

/// What the program asked of the world, in order: one readable line for each call of a port, each statement
/// that goes to the inventory, whatever else a test tells it. All fakes of one test share one.
using Journal = std::vector<std::string>;

/// `text` for a line of the journal: NUL, CR and LF stand as `<NUL>`, `<CR>`, `<LF>`; a run of NULs stands
/// once.
[[nodiscard]] std::string shown(std::string_view text);

/// The lines that begin with `beginning`, in order.
[[nodiscard]] Journal linesOf(const Journal& journal, std::string_view beginning);

/// The lines that begin with none of the `beginnings`, in order.
[[nodiscard]] Journal linesWithout(const Journal& journal, const std::vector<std::string_view>& beginnings);

}  // namespace varnhold::fakes
