#pragma once

#include <memory>

#include "companion/remote_computer.h"

namespace varnhold::companion::test {

/// Counts the changes that are asked of a computer, and refuses one of them.
struct FailurePoint {
  int failAt = 0;  ///< counted from 1
  int changes = 0;

  [[nodiscard]] bool refuses() { return ++changes == failAt; }
};

/// A network whose computers refuse one change with kAccessDenied; those before and after it are made.
class FailingNetwork : public Network {
 public:
  FailingNetwork(const Network& network, FailurePoint& point) : network_(network), point_(point) {}

  [[nodiscard]] std::unique_ptr<RemoteComputer> find(std::string_view nameOrAddress) const override;
  [[nodiscard]] JobScript script(std::string_view, std::string_view) const override { return {}; }
  [[nodiscard]] std::vector<std::string> names() const override { return network_.names(); }

 private:
  const Network& network_;
  FailurePoint& point_;
};

}  // namespace varnhold::companion::test
