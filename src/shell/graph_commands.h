#pragma once
// The graph view's commands: LOAD_GRF / LOAD_GRAF, GRF_VIEW, PRINT_GRF / PRINT_GRAF,
// !EDIT_GRF, SAVE_GRF_PNG, SAVE_GRF_SVG, SAVE_GRF_PDF, SAVE_GRF_PS, SAVE_GRF_CLIP,
// GRF_OPTION, NEXT_GRAPH and PREVIOUS_GRAPH. The run's graph file (GRF_<id>.grf) always
// holds the graph now shown, so SAVE_GRF_ASCII and COPY_GRF (run-file commands) copy
// it; a graph that a mode writes there joins the run's series of graphs. The settings
// come from system/grf_view.ini (see graph_settings.h).
#include <memory>

#include "shell/session.h"

namespace tidemark::shell {

// The handler that app/ plugs into the shell as its graph view.
std::unique_ptr<CommandHandler> make_graph_view();

}  // namespace tidemark::shell
