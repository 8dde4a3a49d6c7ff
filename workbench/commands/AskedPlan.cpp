// Reads the options for plans.
#include "workbench/commands/AskedPlan.h"

#include <cmath>

#include "facts/NumberText.h"
#include "platform/base/PlainText.h"
#include "platform/host/ExitCode.h"
#include "workbench/Texts.h"
#include "workbench/terminal/Complaint.h"

namespace {

constexpr double kFarthestSill = 10'000.0;
constexpr double kHighestWindow = 1000.0;
constexpr double kHighestStorey = 100.0;

std::optional<double> ParseAboveZero(const CString& text, double most) {
    const std::optional<double> metres = ParseDecimal(text);
    return metres && *metres > 0.0 && *metres <= most ? metres : std::nullopt;
}

std::optional<Storeys> ParseStoreys(const CString& text) {
    const int sign = text.Find(L'=');
    if (sign < 0)
        return {};
    const std::optional<int> count = ParseWhole(text.Left(sign), 1, kMostStoreys);
    const std::optional<double> step = ParseAboveZero(text.Mid(sign + 1), kHighestStorey);
    if (!count || !step)
        return {};
    return Storeys{*count, *step};
}

CString BadSillText(const CString& value) {
    return SayFormat(L"--sill 的值“%s”不对：请写窗台标高的米数，-10000 到 10000，例如 0.9", Printable(value));
}

CString BadHeightText(const CString& value) {
    return SayFormat(L"--window-height 的值“%s”不对：请写窗高的米数，大于 0、不超过 1000，例如 1.5", Printable(value));
}

CString BadStoreysText(const CString& value) {
    return SayFormat(L"--storeys 的值“%s”不对：请写 层数=层高米数，层数 1 到 1000，层高大于 0、不超过 100，例如 6=2.9",
                     Printable(value));
}

}  // namespace

int ReadAskedPlan(const AskedPlan& asked, PlanRules& rules) {
    if (asked.sill) {
        rules.sill = ParseDecimal(*asked.sill);
        if (!rules.sill || std::fabs(*rules.sill) > kFarthestSill)
            return Refuse(kExitUsage, BadSillText(*asked.sill));
    }
    if (asked.windowHeight) {
        rules.windowHeight = ParseAboveZero(*asked.windowHeight, kHighestWindow);
        if (!rules.windowHeight)
            return Refuse(kExitUsage, BadHeightText(*asked.windowHeight));
    }
    if (asked.storeys) {
        rules.storeys = ParseStoreys(*asked.storeys);
        if (!rules.storeys)
            return Refuse(kExitUsage, BadStoreysText(*asked.storeys));
    }
    return kExitOk;
}
