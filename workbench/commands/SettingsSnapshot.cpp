// Remembering and restoring the settings.
#include "workbench/commands/SettingsSnapshot.h"

#include "settings/OrvoDataSet.h"
#include "workbench/settings/SettingsFile.h"
#include "workbench/settings/SettingsForm.h"

SettingsSnapshot::SettingsSnapshot(const OrvoDataSet& settings)
    : m_form(FormOf(settings)), m_place(settings), m_wholeStep(settings.m_nSpace) {}

void SettingsSnapshot::Restore(OrvoDataSet& settings) const {
    PutInForce(*m_form, settings);
    static_cast<OrvoZoneRecord&>(settings) = m_place;
    settings.m_nSpace = m_wholeStep;
}
