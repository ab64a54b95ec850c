#include "platform/modules/module.h"

#include "base/errors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::modules {
namespace {

using testing::HasSubstr;

base::Error failureOf(const char* module, const char* name)
{
  try {
    functionOf(module, name, base::ErrorNumber::InvalidPicture);
  } catch (const base::Error& error) {
    return error;
  }
  return {base::ErrorNumber::InvalidCall, "nothing failed"};
}

TEST(Module, gives_the_function_that_it_exports)
{
  EXPECT_NE(functionOf(MODULE, "mrd_connection", base::ErrorNumber::InvalidCall), nullptr);
}

TEST(Module, gives_the_same_function_each_time)
{
  EXPECT_EQ(functionOf(MODULE, "mrd_connection", base::ErrorNumber::InvalidCall),
            functionOf(MODULE, "mrd_connection", base::ErrorNumber::InvalidCall));
}

TEST(Module, that_is_missing_is_named_under_the_number_that_the_caller_chose)
{
  const auto failure = failureOf("mrd-nowhere.so", "mrd_connection");
  EXPECT_EQ(failure.kind(), base::ErrorNumber::InvalidPicture);
  EXPECT_THAT(failure.description(), HasSubstr("mrd-nowhere.so"));
}

TEST(Module, without_the_function_names_it_under_the_number_that_the_caller_chose)
{
  const auto failure = failureOf(MODULE, "mrd_nothing");
  EXPECT_EQ(failure.kind(), base::ErrorNumber::InvalidPicture);
  EXPECT_THAT(failure.description(), HasSubstr("mrd_nothing"));
}

} // namespace
} // namespace mrd::modules
