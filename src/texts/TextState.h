#pragma once

#include "texts/TextTable.h"

#include <optional>

// The state of the text store that belongs to the running copy.
struct TextState
{
    TextLanguage language;
    std::optional<bool> ShowToolTips; // nothing until the settings are loaded; tips are then neither cleared nor saved
    bool DevMode = false;             // asks before loading and saving
};
