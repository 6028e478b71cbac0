#pragma once
// The session bus through Qt, whose notification area icon goes over the same bus.

#include <QString>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "platform/posix/environment.h"
#include "platform/posix/session_bus.h"

class QDBusConnection;

namespace lumidex {

// Makes the library's own connection, over which it meets assistive programs, on a thread while the windows
// are made; else the first of them waits for it. To be called once the application object stands.
std::optional<std::jthread> ConnectLibrary();

class QtSessionBus final : public SessionBus {
 public:
  // Connects at the first use. The bus itself is given so long to say who is there.
  explicit QtSessionBus(Environment environment = ReadEnvironment, int patience = ShortMilliseconds);
  ~QtSessionBus() override;

  bool HasOwner(const std::string& service) override;
  std::optional<std::vector<BusValue>> Call(const BusCall& call, int millisecondsAtMost) override;

 private:
  // Null when there is no bus.
  QDBusConnection* Connected();

  const Environment environment_;
  const int patience_;
  const QString name_;  // of the connection, in this process
  std::mutex mutex_;
  std::unique_ptr<QDBusConnection> connection_;
};

}  // namespace lumidex
