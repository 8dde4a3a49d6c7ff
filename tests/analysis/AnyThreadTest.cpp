// An analysis away from the module's thread, while that one goes on.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "AnswerText.h"
#include "DrawingForWindows.h"
#include "PaperHouse.h"
#include "settings/AnalysisParameters.h"
#include "settings/OrvoStdSet.h"

namespace {

// The precision dialog, as a user who plays with it.
class ParametersAtPlay {
public:
    void Play() {
        g_nSunWinOffset += 300.0;
        g_nSunDistPrec += 30.0;
        g_nWinThickness += 1.0;
    }
    ~ParametersAtPlay() {
        g_nSunWinOffset = m_offset;
        g_nSunDistPrec = m_precision;
        g_nWinThickness = m_thickness;
    }

private:
    double m_offset = g_nSunWinOffset;
    double m_precision = g_nSunDistPrec;
    double m_thickness = g_nWinThickness;
};

}  // namespace

TEST(AnyThread, AnswersAsOnTheModulesWhateverHappensToTheParametersMeanwhile) {
    JudgedScene scene = House();
    scene.Box(-5000, -60000, 0, 5000, -50000, 100000);
    AnalysisRequest request = Winter();
    request.settings.standard->validSunType = ORVO_SUN_SHANGHAI;
    request.need = 2.0;
    const OpenDrawing drawing(scene.Text());
    const std::string expected = TextOf(AnalyseWindows(drawing.database, request));
    std::string told;
    std::atomic<bool> isOver = false;
    ParametersAtPlay parameters;
    parameters.Play();
    std::thread other([&] {
        told = TextOf(AnalyseWindows(drawing.database, request));
        isOver = true;
    });
    while (!isOver)
        parameters.Play();
    other.join();
    EXPECT_EQ(told, expected);
}
