#pragma once
// The session's message bus, as far as the desktop's services are spoken to over it. One connection serves
// all of them: what a service grants lasts as long as the connection.

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace lumidex {

// An open file that goes along with a message.
struct BusFile {
  int descriptor = -1;
};

struct BusValue;
using BusDictionary = std::map<std::string, BusValue>;

struct BusValue {
  std::variant<bool, std::int32_t, std::uint32_t, double, std::string, BusFile, BusDictionary> value;
  // Travels inside a variant; the values of a dictionary always do.
  bool boxed = false;

  const std::string* Text() const { return std::get_if<std::string>(&value); }
};

struct BusCall {
  std::string service, path, interface, method;
  std::vector<BusValue> arguments = {};
};

// Every function may be called from any thread that may wait. Without a bus, or with one that does not
// answer, they fail quietly.
class SessionBus {
 public:
  static constexpr int ShortMilliseconds = 200, LongMilliseconds = 3000;

  virtual ~SessionBus() = default;
  // Whether somebody answers to the name now; no service is started to find out.
  virtual bool HasOwner(const std::string& service) = 0;
  // What was answered, values of other kinds than the above left out. Nothing after an error, or when the
  // answer does not come in time. Services that can be started by the bus are.
  virtual std::optional<std::vector<BusValue>> Call(const BusCall& call,
                                                    int millisecondsAtMost = LongMilliseconds) = 0;
};

}  // namespace lumidex
