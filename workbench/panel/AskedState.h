// What an answer was made with, to see whether it still holds.
#pragma once

#include <QStringList>
#include <memory>
#include <string>

#include "platform/base/CString.h"

struct Scene;
struct Settings;
struct TuningParameters;

struct AskedState {
    std::shared_ptr<const Scene> scene;  // another one as soon as the drawing, or a height, is another
    std::string settings;
    QStringList fields;
};

// Everything of the settings that an analysis goes by, as one text.
std::string SettingsState(const Settings& settings, const TuningParameters& tuning);

// In words what has changed between the two; empty for nothing.
CString ChangesBetween(const AskedState& then, const AskedState& now);
