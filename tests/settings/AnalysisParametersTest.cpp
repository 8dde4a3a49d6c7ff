// The parameters of all analyses: names, types, and values that are there before any code runs.
#include <dlfcn.h>
#include <elf.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <type_traits>

#include "settings/AnalysisParameters.h"

namespace {

template <class Part>
void Read(std::ifstream& file, std::uint64_t offset, Part& part) {
    file.seekg(static_cast<std::streamoff>(offset));
    EXPECT_TRUE(file.read(reinterpret_cast<char*>(&part), sizeof part));
}

// The bytes that the library's file has for an object: what the loader puts there before any code runs.
template <class Value>
Value ValueInFile(const Value& object) {
    Dl_info where;
    if (dladdr(&object, &where) == 0) {
        ADD_FAILURE() << "in no library";
        return {};
    }
    std::ifstream file(where.dli_fname, std::ios::binary);
    Elf64_Ehdr head{};
    Read(file, 0, head);
    const auto address = reinterpret_cast<const char*>(&object) - static_cast<const char*>(where.dli_fbase);
    const auto wanted = static_cast<Elf64_Addr>(address);
    Value value{};
    for (unsigned i = 0; i < head.e_phnum; ++i) {
        Elf64_Phdr segment{};
        Read(file, head.e_phoff + i * sizeof segment, segment);
        if (segment.p_type != PT_LOAD || wanted < segment.p_vaddr || wanted >= segment.p_vaddr + segment.p_memsz)
            continue;
        if (wanted - segment.p_vaddr < segment.p_filesz)  // else it is one of those that begin with zeros
            Read(file, segment.p_offset + (wanted - segment.p_vaddr), value);
        return value;
    }
    ADD_FAILURE() << "in no segment";
    return value;
}

template <class Type, class Value>
void ExpectParameter(const char* name, Value& object, Value expected) {
    EXPECT_TRUE((std::is_same_v<Type, Value>)) << name;
    EXPECT_EQ(object, expected) << name;
    EXPECT_EQ(ValueInFile(object), expected) << name;
}

}  // namespace

TEST(AnalysisParameters, AreThereWithTheirValuesBeforeAnyCodeRuns) {
    ExpectParameter<int>("g_RenderMaxFaceNum", g_RenderMaxFaceNum, 5000);
    ExpectParameter<int>("g_bHardOpenGL", g_bHardOpenGL, 1);
    ExpectParameter<bool>("g_bLimitClientScope", g_bLimitClientScope, true);
    ExpectParameter<int>("g_bMAOutputDetail", g_bMAOutputDetail, 0);
    ExpectParameter<int>("g_bPolyBuild", g_bPolyBuild, 0);
    ExpectParameter<int>("g_bWinAllPointAna", g_bWinAllPointAna, 0);
    ExpectParameter<double>("g_nBuildingHeightLimit", g_nBuildingHeightLimit, 100000.0);
    ExpectParameter<int>("g_nCtrlWarningMin", g_nCtrlWarningMin, 5);
    ExpectParameter<double>("g_nCutterTimePrec", g_nCutterTimePrec, 10.0);
    ExpectParameter<double>("g_nKtRatio", g_nKtRatio, 0.5);
    ExpectParameter<double>("g_nKtWEMaxScope", g_nKtWEMaxScope, 50000.0);
    ExpectParameter<double>("g_nKtWEMinScope", g_nKtWEMinScope, 30000.0);
    ExpectParameter<double>("g_nMainScopeRadius", g_nMainScopeRadius, 300000.0);
    ExpectParameter<double>("g_nMainScopeRadius1", g_nMainScopeRadius1, 300000.0);
    ExpectParameter<double>("g_nMinBrightness", g_nMinBrightness, 7000.0);
    ExpectParameter<double>("g_nMinSunAngle", g_nMinSunAngle, 5.0);
    ExpectParameter<double>("g_nScopeFactorOfHeight", g_nScopeFactorOfHeight, 1.4);
    ExpectParameter<double>("g_nSunAngPrec", g_nSunAngPrec, 0.00001);
    ExpectParameter<double>("g_nSunDistPrec", g_nSunDistPrec, 0.05);
    ExpectParameter<int>("g_nSunExpert", g_nSunExpert, 18);
    ExpectParameter<double>("g_nSunWinOffset", g_nSunWinOffset, 5.0);
    ExpectParameter<double>("g_nViewXYAngle", g_nViewXYAngle, 120.0);
    ExpectParameter<double>("g_nViewZAAngle", g_nViewZAAngle, 120.0);
    ExpectParameter<double>("g_nWinThickness", g_nWinThickness, 200.0);
    ExpectParameter<double>("g_nZtRatio", g_nZtRatio, 0.5);
    ExpectParameter<double>("g_nZtWEMaxScope", g_nZtWEMaxScope, 50000.0);
    ExpectParameter<double>("g_nZtWEMinScope", g_nZtWEMinScope, 30000.0);
}
