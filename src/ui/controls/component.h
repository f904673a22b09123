#pragma once

#include <functional>
#include <vector>

namespace varnhold::ui {

class Component;

/// What a `Component` knows of each of its properties.
class PropertyBase {
 public:
  PropertyBase(const PropertyBase&) = delete;
  PropertyBase& operator=(const PropertyBase&) = delete;

  /// Remembers the value as the design value.
  virtual void keepDesign() = 0;
  /// Goes back to the design value and tells nobody.
  virtual void restoreDesign() = 0;

 protected:
  explicit PropertyBase(Component& owner);
  ~PropertyBase() = default;
  void tellOwner() const;

 private:
  Component& owner_;
};

/// Whatever holds properties and raises events: a control, a form, a panel of a status bar. It does not move,
/// since its properties know it.
class Component {
 public:
  Component() = default;
  Component(const Component&) = delete;
  Component& operator=(const Component&) = delete;
  virtual ~Component() = default;

  /// Remembers all it holds as the design: what the form comes up with at each load.
  virtual void keepDesign();
  /// Goes back to the design. Raises no event.
  virtual void restoreDesign();

 protected:
  /// A property of this component was set to another value.
  virtual void changed(const PropertyBase& property) = 0;
  /// Runs the handler of an event that code has set off. A run-time error that leaves it ends the program.
  virtual void runHandler(const std::function<void()>& handler) const = 0;

 private:
  friend class PropertyBase;
  template <class... Args>
  friend class Event;

  std::vector<PropertyBase*> properties_;
};

}  // namespace varnhold::ui
