// Remembering and restoring the settings.
#include "facts/SettingsSnapshot.h"

#include "facts/SettingsFile.h"
#include "facts/SettingsForm.h"
#include "settings/OrvoDataSet.h"

SettingsSnapshot::SettingsSnapshot(const OrvoDataSet& settings)
    : m_form(FormOf(settings)), m_place(settings), m_wholeStep(settings.m_nSpace) {}

void SettingsSnapshot::Restore(OrvoDataSet& settings) const {
    PutInForce(*m_form, settings);
    static_cast<OrvoZoneRecord&>(settings) = m_place;
    settings.m_nSpace = m_wholeStep;
}
