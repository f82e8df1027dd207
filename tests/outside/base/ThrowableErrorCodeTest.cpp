#include <gtest/gtest.h>

#include "korvelfile/outside/base/ThrowableErrorCode.h"

namespace {

ThrowableErrorCode<bool> PassOn(bool value) {
  ThrowableErrorCode<bool> answer(value);
  return ThrowableErrorCode<bool>(answer);
}

TEST(ThrowableErrorCode, TheLastCopyMustBeLookedAtUnlessAnotherExceptionIsUnderWay) {
  EXPECT_FALSE(PassOn(false));
  EXPECT_THROW({ [[maybe_unused]] const auto answer = PassOn(true); }, MandatoryErrorCodeException);
  const auto overlookAndThrow = [] {
    [[maybe_unused]] const auto answer = PassOn(true);
    throw 1;
  };
  EXPECT_THROW(overlookAndThrow(), int);
}

}  // namespace
