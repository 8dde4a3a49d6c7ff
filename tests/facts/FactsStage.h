// The module's three dictionaries and the settings, holding only what a test puts there.
#pragma once

#include <gtest/gtest.h>

#include <string_view>

#include "frame/ConfigDictionaries.h"
#include "platform/base/QcDtDictionary.h"
#include "settings/OrvoDataSet.h"
#include "support/EmptyConfiguration.h"
#include "support/FileTree.h"

class FactsStage : public testing::Test {
protected:
    FactsStage() { EmptyConfiguration(); }
    ~FactsStage() override { EmptyConfiguration(); }

    // Fills a dictionary from the text of a file.
    void Read(QcDtDictionary& dictionary, std::string_view xml) const {
        const std::string path = m_folder.Write("read.xml", xml).string();
        ASSERT_TRUE(dictionary.ReadFromXML(FromUtf8(path)));
    }

    FileTree m_folder;
};
