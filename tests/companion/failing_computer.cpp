#include "tests/companion/failing_computer.h"

namespace varnhold::companion::test {
namespace {

/// Asks the point before each change.
#define CHANGE(call) (point_.refuses() ? kAccessDenied : (call))

class FailingFiles : public RemoteFiles {
 public:
  FailingFiles(RemoteFiles& files, FailurePoint& point) : files_(files), point_(point) {}

  Win32Error connect() override { return files_.connect(); }
  bool isFolder(const std::string& path) override { return files_.isFolder(path); }
  std::optional<std::string> read(const std::string& path) override { return files_.read(path); }
  Win32Error write(const std::string& path, std::string_view bytes) override {
    return CHANGE(files_.write(path, bytes));
  }
  Win32Error remove(const std::string& path) override { return CHANGE(files_.remove(path)); }
  Win32Error createFolder(const std::string& path) override { return CHANGE(files_.createFolder(path)); }
  Win32Error removeFolder(const std::string& path) override { return CHANGE(files_.removeFolder(path)); }
  std::vector<std::string> names(const std::string& path) override { return files_.names(path); }

 private:
  RemoteFiles& files_;
  FailurePoint& point_;
};

class FailingServices : public RemoteServices {
 public:
  FailingServices(RemoteServices& services, FailurePoint& point) : services_(services), point_(point) {}

  Win32Error open() override { return services_.open(); }
  Win32Error query(const std::string& name, ServiceEntry& entry) override {
    return services_.query(name, entry);
  }
  Win32Error create(const ServiceEntry& entry) override { return CHANGE(services_.create(entry)); }
  Win32Error change(const ServiceEntry& entry, const std::string& password) override {
    return CHANGE(services_.change(entry, password));
  }
  Win32Error secure(const std::string& name) override { return CHANGE(services_.secure(name)); }
  Win32Error start(const std::string& name) override { return CHANGE(services_.start(name)); }
  Win32Error stop(const std::string& name) override { return CHANGE(services_.stop(name)); }
  Win32Error remove(const std::string& name) override { return CHANGE(services_.remove(name)); }

 private:
  RemoteServices& services_;
  FailurePoint& point_;
};

class FailingRegistry : public RemoteRegistry {
 public:
  FailingRegistry(RemoteRegistry& registry, FailurePoint& point) : registry_(registry), point_(point) {}

  Win32Error open() override { return registry_.open(); }
  bool hasKey(const std::string& key) override { return registry_.hasKey(key); }
  std::vector<NamedValue> values(const std::string& key) override { return registry_.values(key); }
  std::vector<std::string> subkeys(const std::string& key) override { return registry_.subkeys(key); }
  Win32Error createKey(const std::string& key) override { return CHANGE(registry_.createKey(key)); }
  Win32Error set(const std::string& key, const NamedValue& value) override {
    return CHANGE(registry_.set(key, value));
  }
  Win32Error removeValue(const std::string& key, const std::string& name) override {
    return CHANGE(registry_.removeValue(key, name));
  }
  Win32Error removeKey(const std::string& key) override { return CHANGE(registry_.removeKey(key)); }

 private:
  RemoteRegistry& registry_;
  FailurePoint& point_;
};

#undef CHANGE

class FailingComputer : public RemoteComputer {
 public:
  FailingComputer(std::unique_ptr<RemoteComputer> computer, FailurePoint& point)
      : computer_(std::move(computer)),
        files_(computer_->files(), point),
        services_(computer_->services(), point),
        registry_(computer_->registry(), point) {}

  const ComputerFacts& facts() const override { return computer_->facts(); }
  bool answers() const override { return computer_->answers(); }
  RemoteFiles& files() override { return files_; }
  RemoteServices& services() override { return services_; }
  RemoteRegistry& registry() override { return registry_; }
  Win32Error openEventLog(std::string_view log) override { return computer_->openEventLog(log); }
  Win32Error logOn(const std::string& account, const std::string& password) override {
    return computer_->logOn(account, password);
  }
  Win32Error connectAgent() override { return computer_->connectAgent(); }
  Win32Error grantServiceLogon(const std::string& sid) override { return computer_->grantServiceLogon(sid); }
  std::unique_ptr<Hold> beginJob() override { return computer_->beginJob(); }
  Win32Error refusal(std::string_view step) const override { return computer_->refusal(step); }

 private:
  std::unique_ptr<RemoteComputer> computer_;
  FailingFiles files_;
  FailingServices services_;
  FailingRegistry registry_;
};

}  // namespace

std::unique_ptr<RemoteComputer> FailingNetwork::find(std::string_view nameOrAddress) const {
  auto computer = network_.find(nameOrAddress);
  return computer ? std::make_unique<FailingComputer>(std::move(computer), point_) : nullptr;
}

}  // namespace varnhold::companion::test
