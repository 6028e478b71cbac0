#include "platform/posix/bus_address.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <map>
#include <string>
#include <thread>

#include "posix/temporary_folder.h"

namespace lumidex {
namespace {

constexpr int patience = 20000;
// Enough to see that nobody answers; nothing is waited for.
constexpr int impatience = 1;

// Takes calls at a path, as a bus does, and answers the first one if it is to.
class Listener {
 public:
  Listener(const std::string& path, const std::string& answer) : answer_(answer) {
    sockaddr_un place{};
    place.sun_family = AF_UNIX;
    std::memcpy(place.sun_path, path.data(), path.size());
    bind(socket_, reinterpret_cast<const sockaddr*>(&place), sizeof place);
    listen(socket_, 4);
    if (!answer.empty()) thread_ = std::thread([this] { AnswerOnce(); });
  }
  ~Listener() {
    shutdown(socket_, SHUT_RDWR);
    if (thread_.joinable()) thread_.join();
    close(socket_);
  }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

  const std::string& Heard() {
    thread_.join();
    return heard_;
  }

 private:
  void AnswerOnce() {
    const int caller = accept(socket_, nullptr, nullptr);
    if (caller < 0) return;
    char character = 0;
    while (!heard_.ends_with('\n') && read(caller, &character, 1) == 1) heard_ += character;
    [[maybe_unused]] const auto sent = write(caller, answer_.data(), answer_.size());
    close(caller);
  }

  int socket_ = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  std::string answer_, heard_;
  std::thread thread_;
};

class BusAddressTest : public testing::Test {
 protected:
  Environment GetEnvironment() {
    return [this](const char* name) { return variables_[name]; };
  }
  TemporaryFolder folder_;
  std::map<std::string, std::string> variables_;
};

TEST_F(BusAddressTest, A_bus_that_answers_is_awake) {
  Listener bus(folder_ / "bus", "OK 1234\r\n");
  EXPECT_TRUE(BusAnswers("unix:path=" + (folder_ / "bus") + ",guid=12", patience));
  std::string identity;
  for (const char digit : std::to_string(getuid())) identity += std::string("3") + digit;
  EXPECT_EQ(bus.Heard(), std::string(1, '\0') + "AUTH EXTERNAL " + identity + "\r\n");
}

TEST_F(BusAddressTest, A_bus_that_refuses_is_awake_too) {
  Listener bus(folder_ / "bus", "REJECTED\r\n");
  EXPECT_TRUE(BusAnswers("unix:path=" + (folder_ / "bus"), patience));
}

TEST_F(BusAddressTest, A_bus_that_takes_the_call_and_is_silent_does_not_answer) {
  const Listener bus(folder_ / "bus", "");
  EXPECT_FALSE(BusAnswers("unix:path=" + (folder_ / "bus"), impatience));
}

TEST_F(BusAddressTest, Nobody_at_the_address_is_known_at_once) {
  EXPECT_FALSE(BusAnswers("unix:path=" + (folder_ / "none"), patience));
  EXPECT_FALSE(BusAnswers("unix:path=" + std::string(200, 'x'), patience));
  EXPECT_FALSE(BusAnswers("unix:abstract=" + (folder_ / "none"), patience));
  EXPECT_FALSE(BusAnswers("", patience));
  EXPECT_FALSE(BusAnswers(noBusAddress, patience));
}

TEST_F(BusAddressTest, Of_several_addresses_one_that_answers_will_do) {
  Listener bus(folder_ / "bus", "OK\r\n");
  EXPECT_TRUE(BusAnswers("unix:path=" + (folder_ / "none") + ";unix:path=" + (folder_ / "bus"), patience));
}

TEST_F(BusAddressTest, Escaped_bytes_are_part_of_the_path) {
  Listener bus(folder_ / "b s", "OK\r\n");
  EXPECT_TRUE(BusAnswers("unix:guid=1,path=" + (folder_ / "b%20s"), patience));
}

TEST_F(BusAddressTest, Other_kinds_of_addresses_are_left_to_the_library) {
  EXPECT_TRUE(BusAnswers("tcp:host=localhost,port=1", impatience));
}

TEST_F(BusAddressTest, The_address_of_the_environment_comes_first) {
  Listener bus(folder_ / "other", "OK\r\n");
  variables_["XDG_RUNTIME_DIR"] = folder_.Path();
  variables_[busVariable] = "unix:path=" + (folder_ / "other");
  EXPECT_EQ(FindSessionBus(GetEnvironment(), patience), "unix:path=" + (folder_ / "other"));
}

TEST_F(BusAddressTest, Without_one_the_runtime_directory_is_looked_into) {
  std::filesystem::create_directory(folder_ / "r n");
  Listener bus(folder_ / "r n/bus", "OK\r\n");
  variables_["XDG_RUNTIME_DIR"] = folder_ / "r n";
  EXPECT_EQ(FindSessionBus(GetEnvironment(), patience), "unix:path=" + (folder_ / "r%20n/bus"));
}

TEST_F(BusAddressTest, Where_nobody_answers_there_is_no_bus) {
  EXPECT_EQ(FindSessionBus(GetEnvironment(), patience), noBusAddress);
  variables_["XDG_RUNTIME_DIR"] = folder_.Path();
  EXPECT_EQ(FindSessionBus(GetEnvironment(), patience), noBusAddress);
  const Listener bus(folder_ / "bus", "");
  EXPECT_EQ(FindSessionBus(GetEnvironment(), impatience), noBusAddress);
}

}  // namespace
}  // namespace lumidex
