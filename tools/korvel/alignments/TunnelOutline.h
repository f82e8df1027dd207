#pragma once

#include <string>
#include <vector>

#include "korvelfile/alignments/TunFile.h"
#include "tools/korvel/alignments/LinePlan.h"

namespace CLI {
class App;
}

namespace korvel {

class LibraryMessages;

/// The outline of a tunnel, read from a file.
class TunnelOutline {
 public:
  /// @throws InputError that says what is wrong with the file, also for one without elements
  TunnelOutline(const std::string& path, LibraryMessages& messages);

  const TunFile& Get() const { return file_; }

  /// The outline as it is drawn: side to the right, height upwards. Refers to this object.
  PlanLine Plan() const;

  /// Number of the element at an arc from the start of the outline, from 1.
  int ElementAt(double arc) const;

  /// Its elements in their order.
  const std::vector<TunElement>& Elements() const { return elements_; }

  /// Where each element begins along the outline, and where the last one ends.
  const std::vector<double>& Arcs() const { return arcs_; }

 private:
  TunFile file_;
  std::vector<TunElement> elements_;
  std::vector<double> arcs_;
};

/// Adds the argument for the file of an outline.
void AddTunnelPath(CLI::App& verb, std::string& path);

}  // namespace korvel
