// Reading the face and the light of orvo shadow.
#include "workbench/commands/ShadowCommand.h"

#include <vector>

#include "platform/host/ExitCode.h"
#include "workbench/commands/CoordinateText.h"
#include "workbench/commands/ShadowAnswer.h"
#include "workbench/commands/ValueErrors.h"
#include "workbench/terminal/Complaint.h"

namespace {

int Refuse(const CString& text) {
    Complain(text);
    return kExitUsage;
}

}  // namespace

int RunShadow(const ShadowOptions& options, Output& output) {
    if (!options.face)
        return Refuse(MissingFaceText());
    std::vector<QcGePoint> corners;
    for (const CString& piece : SplitAtSemicolons(*options.face)) {
        const std::optional<QcGePoint> corner = ParseCoordinates(piece);
        if (!corner)
            return Refuse(BadCornerText(*options.face, static_cast<int>(corners.size()) + 1));
        corners.push_back(*corner);
    }
    if (corners.size() < 3 || corners.size() > 4)
        return Refuse(BadCornerCountText(*options.face, static_cast<int>(corners.size())));
    if (!options.light)
        return Refuse(MissingLightText());
    const std::optional<QcGePoint> light = ParseCoordinates(*options.light);
    if (!light)
        return Refuse(BadLightText(*options.light));
    if (*light == QcGePoint())
        return Refuse(ZeroLightText(*options.light));

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
