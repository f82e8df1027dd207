#pragma once

#include <exception>
#include <stdexcept>
#include <utility>

/// Thrown where a result was never looked at.
class MandatoryErrorCodeException : public std::logic_error {
 public:
  MandatoryErrorCodeException() : std::logic_error("Must handle error code") {}
};

/// A result that must be looked at: its destructor throws if nobody took the value.
///
/// A copy takes over the duty: the original no longer throws, so that a result can be returned by
/// value. While another exception is under way nothing is thrown.
template <class T>
class [[nodiscard]] ThrowableErrorCode {
 public:
  ThrowableErrorCode(T value) : value_(std::move(value)) {}
  ThrowableErrorCode(const ThrowableErrorCode& other)
      : value_(other.value_), isUnseen_(std::exchange(other.isUnseen_, false)) {}
  ThrowableErrorCode& operator=(const ThrowableErrorCode& other) {
    value_ = other.value_;
    isUnseen_ = std::exchange(other.isUnseen_, false);
    return *this;
  }
  ~ThrowableErrorCode() noexcept(false) {
    if (isUnseen_ && std::uncaught_exceptions() == 0) throw MandatoryErrorCodeException();
  }

  /// Looks at the value.
  operator T() const {
    isUnseen_ = false;
    return value_;
  }

 private:
  T value_;
  mutable bool isUnseen_ = true;
};
