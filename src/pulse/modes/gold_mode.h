#pragma once
// The Gold_Method mode: Gold's deconvolution of the current data set with an elimination
// half-life and a secretion SD from the dialog "Gold's Method Deconvolution", on the
// regular grid the data conditioner leaves. Commands GOLD_CALCULATE, GOLD_VIEW,
// GOLD_PRINT; settings file do_gold.ini. docs/gold-mode.md describes the listing, graph
// and messages.
#include <memory>

#include "shell/module.h"

namespace tidemark::pulse {

std::unique_ptr<shell::Module> make_gold_mode();

}  // namespace tidemark::pulse
