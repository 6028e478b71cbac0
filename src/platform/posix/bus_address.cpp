#include "platform/posix/bus_address.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cctype>
#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <sstream>
#include <string_view>

namespace lumidex {
namespace {

using Clock = std::chrono::steady_clock;

int HexDigit(char character) {
  constexpr std::string_view digits = "0123456789abcdef";
  const auto at = digits.find(static_cast<char>(character | 0x20));
  return at == std::string_view::npos ? -1 : static_cast<int>(at);
}

// "%2f" is a byte.
std::string Unescaped(const std::string& text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const int high = text[i] == '%' && i + 2 < text.size() ? HexDigit(text[i + 1]) : -1;
    const int low = high < 0 ? -1 : HexDigit(text[i + 2]);
    if (low < 0) {
      plain += text[i];
    } else {
      plain += static_cast<char>(high << 4 | low);
      i += 2;
    }
  }
  return plain;
}

std::string Escaped(const std::string& text) {
  constexpr std::string_view digits = "0123456789abcdef", plain = "-_/.\\";
  std::string escaped;
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    const bool isPlain =
        (byte < 0x80 && std::isalnum(byte)) || plain.find(character) != std::string_view::npos;
    escaped += isPlain ? std::string(1, character) : std::string{'%', digits[byte >> 4], digits[byte & 15]};
  }
  return escaped;
}

// The name of the socket behind one address, the abstract ones with a zero before; nothing for other kinds.
std::optional<std::string> SocketOf(const std::string& address) {
  constexpr std::string_view kind = "unix:";
  if (!address.starts_with(kind)) return {};
  std::istringstream pairs(address.substr(kind.size()));
  for (std::string pair; std::getline(pairs, pair, ',');) {
    constexpr std::string_view path = "path=", abstract = "abstract=";
    if (pair.starts_with(path)) return Unescaped(pair.substr(path.size()));
    if (pair.starts_with(abstract)) return '\0' + Unescaped(pair.substr(abstract.size()));
  }
  return {};
}

bool IsReady(int socket, short what, Clock::time_point end) {
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
  pollfd wait{socket, what, 0};
  return left > 0 && poll(&wait, 1, static_cast<int>(left)) == 1 && (wait.revents & what) != 0;
}

// The first step of the protocol: who we are. Any answer to it will do.
bool Greets(int socket, Clock::time_point end) {
  std::string greeting(1, '\0');
  greeting += "AUTH EXTERNAL ";
  for (const char digit : std::to_string(getuid())) greeting += std::string("3") + digit;
  greeting += "\r\n";
  const auto sent = send(socket, greeting.data(), greeting.size(), MSG_NOSIGNAL);
  char answer = 0;
  return sent == static_cast<ssize_t>(greeting.size()) && IsReady(socket, POLLIN, end) &&
         recv(socket, &answer, 1, 0) == 1;
}

bool SocketAnswers(const std::string& name, Clock::time_point end) {
  sockaddr_un place{};
  place.sun_family = AF_UNIX;
  if (name.size() >= sizeof(place.sun_path)) return false;
  std::memcpy(place.sun_path, name.data(), name.size());
  const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  if (descriptor < 0) return false;
  const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size());
  // A full queue of callers refuses at once instead of letting us wait: that bus does not answer either.
  const bool answers =
      connect(descriptor, reinterpret_cast<const sockaddr*>(&place), length) == 0 && Greets(descriptor, end);
  close(descriptor);
  return answers;
}

}  // namespace

bool BusAnswers(const std::string& addresses, int millisecondsAtMost) {
  if (addresses == noBusAddress) return false;
  const auto end = Clock::now() + std::chrono::milliseconds(millisecondsAtMost);
  std::istringstream each(addresses);
  for (std::string address; std::getline(each, address, ';');) {
    const auto name = SocketOf(address);
    if (!name || SocketAnswers(*name, end)) return true;
  }
  return false;
}

std::string FindSessionBus(const Environment& environment, int millisecondsAtMost) {
  std::string address = environment(busVariable);
  if (address.empty()) {
    const std::string folder = environment("XDG_RUNTIME_DIR");
    if (!folder.starts_with('/')) return noBusAddress;
    address = "unix:path=" + Escaped(folder + "/bus");
  }
  return BusAnswers(address, millisecondsAtMost) ? address : noBusAddress;
}

void SettleSessionBus() {
  constexpr int patience = 200;
  setenv(busVariable, FindSessionBus(ReadEnvironment, patience).c_str(), 1);
}

}  // namespace lumidex
