#pragma once

#include <functional>
#include <string>
#include <vector>

class DataItemListObject;

namespace Data {

/// An application's table of row keywords: each entry gives the class name of an object that it
/// knows, and an empty text, or throws `std::bad_cast`, for any other.
using ClassToString = std::vector<std::function<std::string(DataItemListObject&)>>;

}  // namespace Data
