// The module's three dictionaries and the settings, holding only what a test puts there.
#pragma once

#include <gtest/gtest.h>

#include <string_view>

#include "frame/ConfigDictionaries.h"
#include "platform/base/QcDtDictionary.h"
#include "settings/OrvoDataSet.h"
#include "support/FileTree.h"

class FactsStage : public testing::Test {
protected:
    FactsStage() { Clear(); }
    ~FactsStage() override { Clear(); }

    // Fills a dictionary from the text of a file.
    void Read(QcDtDictionary& dictionary, std::string_view xml) const {
        const std::string path = m_folder.Write("read.xml", xml).string();
        ASSERT_TRUE(dictionary.ReadFromXML(FromUtf8(path)));
    }

    FileTree m_folder;

private:
    static void Clear() {
        g_dictSunZone.ReadFromXML(nullptr);
        g_dictSunSterm.ReadFromXML(nullptr);
        g_dictSunSet.ReadFromXML(nullptr);
        g_SunDataSet = OrvoDataSet();
    }
};
