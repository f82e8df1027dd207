#include "korvelfile/coordinates/CodesAndRemark.h"

#include <cstddef>

#include "korvelfile/outside/base/NumberText.h"

double detail::CodesAndRemark::GetRemarkAsFloat() const {
  std::string number = remark_;
  std::erase(number, ' ');
  const std::size_t point = number.rfind('.');
  const std::size_t comma = number.rfind(',');
  if (point != std::string::npos && comma != std::string::npos) {
    std::erase(number, point < comma ? '.' : ',');
  }
  const std::size_t mark = number.rfind(',');
  if (mark != std::string::npos) number[mark] = '.';
  return ParseDouble(number);
}
