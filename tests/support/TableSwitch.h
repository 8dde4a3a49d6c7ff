// A language switch that knows just the translations that a test gives it, in force for as long as it lives. Every
// other text stays as it is.
#pragma once

#include <initializer_list>
#include <utility>
#include <vector>

#include "platform/base/Language.h"

class TableSwitch : public TeskLanguageSwitch {
public:
    using Entry = std::pair<const wchar_t*, const wchar_t*>;

    TableSwitch(std::initializer_list<Entry> entries) {
        for (const auto& [text, translation] : entries)
            m_entries.emplace_back(text, translation);
        g_pTeskLangSwitch = this;
    }
    ~TableSwitch() override { g_pTeskLangSwitch = nullptr; }
    TableSwitch(const TableSwitch&) = delete;
    TableSwitch& operator=(const TableSwitch&) = delete;

    CString Translate(const wchar_t* text) const override {
        for (const auto& [original, translation] : m_entries)
            if (original == text)
                return translation;
        return text;
    }

private:
    std::vector<std::pair<CString, CString>> m_entries;
};
