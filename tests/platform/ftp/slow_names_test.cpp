// A name server that does not answer: the system's look-up of names is this file's, for one host.

#include "platform/ftp/client_desk.h"

#include <atomic>
#include <chrono>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <netdb.h>
#include <string_view>
#include <thread>

namespace {

using namespace std::chrono_literals;

constexpr std::string_view kSlowHost = "langsam.invalid";
std::atomic<bool> isAsked = false, isReleased = false, hasAnswered = false;

} // namespace

extern "C" int getaddrinfo(const char* node, const char* service, const addrinfo* hints, addrinfo** found)
{
  if (node != nullptr && node == kSlowHost) {
    isAsked = true;
    for (int i = 0; i < 3000 && !isReleased; ++i)
      std::this_thread::sleep_for(10ms);
    hasAnswered = true;
    return EAI_AGAIN;
  }
  using Function = int (*)(const char*, const char*, const addrinfo*, addrinfo**);
  static const auto real = reinterpret_cast<Function>(::dlsym(RTLD_NEXT, "getaddrinfo"));
  return real(node, service, hints, found);
}

namespace mrd::ftp {
namespace {

TEST(SlowNameServer, holds_up_no_end_of_a_client)
{
  {
    CurlClient client([](const ServerIdentity&) { return false; });
    client.Execute(addressOf(kSlowHost, "anna", "geheim"), "dir");
    while (!isAsked)
      client.StillExecuting();
  }
  EXPECT_FALSE(hasAnswered);

  isReleased = true;
  while (!hasAnswered)
    std::this_thread::sleep_for(1ms);
}

} // namespace
} // namespace mrd::ftp
