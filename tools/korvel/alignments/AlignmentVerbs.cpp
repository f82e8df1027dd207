#include "tools/korvel/alignments/AlignmentVerbs.h"

#include "tools/korvel/VerbGroup.h"
#include "tools/korvel/alignments/AlignInfoVerb.h"
#include "tools/korvel/alignments/CheckVerb.h"
#include "tools/korvel/alignments/LinePointVerb.h"
#include "tools/korvel/alignments/LineStationVerb.h"
#include "tools/korvel/alignments/ListVerb.h"
#include "tools/korvel/alignments/RefineVerb.h"
#include "tools/korvel/alignments/RoadPlotVerb.h"
#include "tools/korvel/alignments/TunnelInfoVerb.h"
#include "tools/korvel/alignments/TunnelOffsetVerb.h"
#include "tools/korvel/alignments/TunnelPlotVerb.h"

void korvel::AddAlignmentVerbs(CLI::App& app, VerbRun& run) {
  CLI::App& align = AddVerbGroup(app, "align", "check, list, station and draw roads");
  AddCheckVerb(align, run);
  AddAlignInfoVerb(align, run);
  AddListVerb(align, run);
  AddLineStationVerb(align, run);
  AddLinePointVerb(align, run);
  AddRefineVerb(align, run);
  AddRoadPlotVerb(align, run);
  CLI::App& tunnel = AddVerbGroup(app, "tunnel", "look into, ask and draw outlines of tunnels");
  AddTunnelInfoVerb(tunnel, run);
  AddTunnelPlotVerb(tunnel, run);
  AddTunnelOffsetVerb(tunnel, run);
}
