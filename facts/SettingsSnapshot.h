// The settings as they were, to go back to when they cannot be saved.
#pragma once

#include <memory>

#include "platform/base/Api.h"
#include "platform/base/QcDtDictionary.h"
#include "zone/OrvoZoneRecord.h"

class OrvoDataSet;

// Remembers everything that a settings file holds, the list of standards included, and the position of the place.
// (A copy of the data set would not do: standards lose their colours when they are assigned.)
class ORVO_API SettingsSnapshot {
public:
    explicit SettingsSnapshot(const OrvoDataSet& settings);
    void Restore(OrvoDataSet& settings) const;

private:
    std::unique_ptr<QcDtDictionary> m_form;
    OrvoZoneRecord m_place;
    int m_wholeStep;
};
