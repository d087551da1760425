#pragma once
// The keyboard of a main window: the form sees every key first, and knows which control has it.

#include "platform/qt/bindings.h"
#include "platform/qt/layout_builder.h"
#include "platform/window/form.h"

void FollowKeyboard(Form& form, QWidget& window, const std::vector<PlacedControl>& controls,
                    Bindings& bindings);
