#pragma once

#include "platform/forms/Control.h"

#include <memory>
#include <vector>

// Screen readers take a control's name from its caption or from the label that belongs to it. This gives a name to controls
// that have neither, and to the fields inside of combo boxes and date pickers. A label's text is its name, whatever the program
// writes there; the name that its design gives it becomes its description, and each new text is announced.
void SpeakToScreenReaders(const std::vector<std::unique_ptr<Control>> &controls);
