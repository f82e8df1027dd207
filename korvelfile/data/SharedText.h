#pragma once

#include <cstddef>
#include <string>

#include "korvelfile/Export.h"

/// An immutable text of which equal ones share one stored string, process-wide.
///
/// It costs one pointer. Copying counts a reference and never allocates. Different objects may be
/// used from any threads; one object by one thread at a time.
class KORVELFILE_EXPORT SharedText {
 public:
  /// The empty text.
  SharedText();
  explicit SharedText(const std::string& text);
  SharedText(const SharedText& other);
  SharedText& operator=(const SharedText& other);
  SharedText& operator=(const std::string& text);
  ~SharedText();

  void Swap(SharedText& other);

  /// Tells that `text` will be shared soon. Called some hundred nanoseconds ahead for each of many
  /// texts, it hides the time that memory takes to answer.
  static void Expect(const std::string& text);

  /// Valid for as long as an object with this text lives.
  const std::string& Get() const;

 private:
  alignas(void*) std::byte storage_[sizeof(void*)];  ///< the flyweight
};
