// Parts layers from their heights.
#include "workbench/commands/HeightOptions.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "facts/NumberText.h"
#include "platform/base/PlainText.h"
#include "platform/host/ExitCode.h"
#include "workbench/Texts.h"
#include "workbench/terminal/Complaint.h"

namespace {

std::optional<LayerHeight> ParseHeight(const CString& text) {
    constexpr double kMostMetres = 10'000.0;
    const std::wstring_view all = text.View();
    const std::size_t sign = all.rfind(L'=');
    if (sign == std::wstring_view::npos)
        return {};
    LayerHeight height;
    height.layer = CString(all.substr(0, sign));
    const std::optional<double> metres = ParseDecimal(CString(all.substr(sign + 1)));
    if (height.layer.Trim().IsEmpty() || !metres || *metres <= 0.0 || *metres > kMostMetres)
        return {};
    height.metres = *metres;
    return height;
}

}  // namespace

int ReadHeights(const std::vector<CString>& texts, std::vector<LayerHeight>& heights) {
    std::set<std::wstring> layers;
    for (const CString& text : texts) {
        const std::optional<LayerHeight> height = ParseHeight(text);
        if (!height)
            return Refuse(kExitUsage, SayFormat(L"--height 的值“%s”不对：请写图层和米数，中间用 = 分开，米数大于 0、"
                                                L"不超过 10000，例如 --height HOUSES=18.5",
                                                Printable(text)));
        CString key = height->layer;
        if (!layers.insert(std::wstring(key.MakeLower().View())).second)
            return Refuse(kExitUsage,
                          SayFormat(L"--height 给了图层“%s”两个高度：请只写一个", Printable(height->layer)));
        heights.push_back(*height);
    }
    return kExitOk;
}
