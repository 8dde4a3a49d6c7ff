// Reading the face and the light of orvo shadow.
#include "workbench/commands/ShadowCommand.h"

#include <vector>

#include "platform/host/ExitCode.h"
#include "platform/host/Subcommands.h"
#include "workbench/Texts.h"
#include "workbench/commands/CoordinateText.h"
#include "workbench/commands/ShadowAnswer.h"
#include "workbench/commands/ValueErrors.h"
#include "workbench/terminal/Complaint.h"

int RunShadow(const ShadowOptions& options, Output& output) {
    std::vector<QcGePoint> corners;
    for (const CString& piece : SplitAtSemicolons(options.face)) {
        const std::optional<QcGePoint> corner = ParseCoordinates(piece);
        if (!corner)
            return Refuse(kExitUsage, BadCornerText(options.face, static_cast<int>(corners.size()) + 1));
        corners.push_back(*corner);
    }
    if (corners.size() < 3 || corners.size() > 4)
        return Refuse(kExitUsage, BadCornerCountText(options.face, static_cast<int>(corners.size())));
    const std::optional<QcGePoint> light = ParseCoordinates(options.light);
    if (!light)
        return Refuse(kExitUsage, BadLightText(options.light));
    if (*light == QcGePoint())
        return Refuse(kExitUsage, ZeroLightText(options.light));

    const ShadowAnswer answer(QcGeFace3dEX(corners.data(), static_cast<int>(corners.size()), true), *light);
    if (!answer.HasPlane()) {
        Complain(answer.WhyNoPlane());
        return kExitFailed;
    }
    if (options.isJson)
        answer.PrintAsJson(output);
    else
        answer.PrintAsText(output);
    return kExitOk;
}

Subcommand ShadowSubcommand() {
    return {L"shadow",
            L"显示一个面的法向、平面、受光情况和投影矩阵",
            {Required(ValueOption(L"--face", L"\"x,y,z;x,y,z;x,y,z[;x,y,z]\"",
                                  L"面的 3 或 4 个角点，从正面看按逆时针，例如 \"0,0,0;4,0,0;4,3,0\"")),
             Required(ValueOption(L"--light", L"dx,dy,dz", L"光线前进的方向，从太阳到场景，例如 1,0,-2")),
             FlagOption(L"--json", L"以 JSON 输出")},
            {L"orvo shadow --face \"0,0,0;4,0,0;4,3,0;0,3,0\" --light 1,0,-2",
             L"orvo shadow --face \"0,0,0;4,0,0;4,0,3\" --light 0,1,-1 --json"},
            [](SubcommandCall& call) {
                return RunShadow({call.GetValue(L"--face").value_or(CString()),
                                  call.GetValue(L"--light").value_or(CString()), call.HasFlag(L"--json")},
                                 call.GetOutput());
            },
            Say};
}
