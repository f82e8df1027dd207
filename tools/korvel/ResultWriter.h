#pragma once

#include <iosfwd>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "tools/korvel/JsonText.h"

namespace CLI {
class App;
}

namespace korvel {

/// How the rows of a result are written.
struct ResultFormat {
  bool csv = false;
  bool json = false;
};

/// Adds the flags that set `format`.
void AddResultFormat(CLI::App& verb, ResultFormat& format);

/// One column of a result. CSV and JSON give numbers in full under `key`; a table gives them under
/// `head`, with `decimals`, multiplied by `scale`.
struct ResultColumn {
  std::string key;
  std::string head;
  int decimals = kText;
  double scale = 1.0;

  static constexpr int kText = -1;  ///< in place of decimals: the cells are texts
};

/// Text, or a number, which may be undefined.
using ResultCell = std::variant<std::string, double>;

/// Writes rows of results. CSV and JSON go out row by row.
class ResultWriter {
 public:
  virtual ~ResultWriter() = default;

  /// @param about  what JSON tells besides the rows, which stand under `rowsKey` in the same object
  /// @param out    must outlive the writer
  static std::unique_ptr<ResultWriter> Make(const ResultFormat& format,
                                            std::vector<ResultColumn> columns, const Json& about,
                                            const std::string& rowsKey, std::ostream& out);

  /// @param row one cell for each column
  virtual void Add(const std::vector<ResultCell>& row) = 0;

  /// Writes what is still missing. Call it once, behind the last row.
  virtual void End() = 0;
};

}  // namespace korvel
