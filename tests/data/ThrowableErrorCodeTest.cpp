#include <gtest/gtest.h>

#include "korvelfile/data/ThrowableErrorCode.h"

namespace {

ThrowableErrorCode<bool> Answer(bool value) { return value; }

ThrowableErrorCode<bool> PassOn(bool value) {
  ThrowableErrorCode<bool> answer = Answer(value);
  return ThrowableErrorCode<bool>(answer);
}

TEST(ThrowableErrorCode, LookedAtIsSilent) {
  EXPECT_TRUE(Answer(true));
  EXPECT_FALSE(PassOn(false));
}

TEST(ThrowableErrorCode, OverlookedThrows) {
  try {
    [[maybe_unused]] const auto answer = Answer(true);
    // The scope ends without a look.
  } catch (const MandatoryErrorCodeException& error) {
    EXPECT_STREQ(error.what(), "Must handle error code");
    return;
  }
  FAIL() << "nothing thrown";
}

TEST(ThrowableErrorCode, TheDutyGoesToTheCopy) {
  EXPECT_THROW({ [[maybe_unused]] const auto answer = PassOn(true); }, MandatoryErrorCodeException);
  EXPECT_NO_THROW({
    const auto answer = Answer(true);
    const auto copy = answer;
    EXPECT_TRUE(copy);
  });
  EXPECT_THROW(
      {
        auto answer = Answer(true);
        EXPECT_TRUE(answer);
        answer = Answer(false);
      },
      MandatoryErrorCodeException)
      << "assignment takes the duty over";
}

TEST(ThrowableErrorCode, AnotherExceptionIsNotReplaced) {
  EXPECT_THROW(
      {
        [[maybe_unused]] const auto answer = Answer(true);
        throw 1;
      },
      int);
}

}  // namespace
