#include "tools/korvel/corrections/CorrectionVerbs.h"

#include "tools/korvel/VerbGroup.h"
#include "tools/korvel/corrections/BuildVerb.h"
#include "tools/korvel/corrections/ConvertVerb.h"
#include "tools/korvel/corrections/CorrectVerb.h"
#include "tools/korvel/corrections/ExpandVerb.h"
#include "tools/korvel/corrections/FieldPlotVerb.h"
#include "tools/korvel/corrections/ModelInfoVerb.h"
#include "tools/korvel/corrections/QueryVerb.h"
#include "tools/korvel/corrections/SectionVerb.h"

void korvel::AddCorrectionVerbs(CLI::App& app, VerbRun& run) {
  CLI::App& grid = AddVerbGroup(app, "grid", "look into, ask, build and draw grids of corrections");
  AddModelInfoVerb(grid, run, "tell what grids hold");
  AddQueryVerb(grid, run, ModelKind::CorrectionGrid);
  AddBuildVerb(grid, run);
  AddExpandVerb(grid, run);
  AddConvertVerb(grid, run);
  AddFieldPlotVerb(grid, run);
  CLI::App& geoid = AddVerbGroup(app, "geoid", "ask a grid of geoid heights");
  AddQueryVerb(geoid, run, ModelKind::GeoidGrid);
  CLI::App& triad = AddVerbGroup(app, "triad", "look into and ask triangulated networks");
  AddModelInfoVerb(triad, run, "tell what networks hold");
  AddQueryVerb(triad, run, ModelKind::Network);
  AddSectionVerb(triad, run);
  AddCorrectVerb(app, run);
}
