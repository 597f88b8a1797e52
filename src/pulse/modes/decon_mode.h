#pragma once
// The AutoDecon (variant 0) and Deconv (variant 1) modes: one driver for the
// deconvolution of the current data set into secretion events and elimination
// half-lives. Commands DECON_CALCULATE, DECON_VIEW, DECON_PRINT, and for Deconv the
// event commands DECON_EVENT_ADD time [LogHeight], DECON_EVENT_REMOVE k,
// DECON_EVENT_FIX k, DECON_EVENT_FREE k and DECON_EVENT_RESET; settings file
// do_decon.ini. docs/decon-mode.md describes the dialog, listing, graph and messages.
#include <memory>

#include "shell/module.h"

namespace tidemark::pulse {

std::unique_ptr<shell::Module> make_decon_mode(int variant);

}  // namespace tidemark::pulse
