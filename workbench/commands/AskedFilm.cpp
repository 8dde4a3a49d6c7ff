// Reads the options of a film.
#include "workbench/commands/AskedFilm.h"

#include <cmath>
#include <utility>

#include "facts/NumberText.h"
#include "platform/base/PlainText.h"
#include "platform/host/ExitCode.h"
#include "platform/host/Subcommands.h"
#include "workbench/Texts.h"
#include "workbench/commands/ValueErrors.h"
#include "workbench/terminal/Complaint.h"

namespace {

constexpr int kLongestStep = 720;  // minutes
constexpr double kLeastZoom = 0.1;
constexpr double kMostZoom = 100.0;
constexpr double kSteepest = 89.0;

constexpr std::pair<const wchar_t*, StandardView> kViews[] = {
    {L"top", StandardView::Top},
    {L"south", StandardView::South},
    {L"east", StandardView::East},
    {L"north", StandardView::North},
    {L"west", StandardView::West},
    {L"southeast", StandardView::SouthEast},
    {L"southwest", StandardView::SouthWest},
};

int ReadEvery(const AskedFilm& asked, FilmRequest& film) {
    if (!asked.every)
        return kExitOk;
    const std::optional<int> every = ParseWhole(*asked.every, 1, kLongestStep);
    if (!every)
        return Refuse(kExitUsage, BadNumberText(L"--every", *asked.every, 1, kLongestStep));
    film.every = *every;
    return kExitOk;
}

// The two parts of a text around its one sign.
std::optional<std::pair<CString, CString>> SplitAt(const CString& text, wchar_t sign) {
    const int at = text.Find(sign);
    if (at < 0)
        return {};
    return std::pair(text.Left(at), text.Mid(at + 1));
}

int ReadSize(const AskedFilm& asked, FilmRequest& film) {
    if (!asked.size)
        return kExitOk;
    const auto parts = SplitAt(*asked.size, L'x');
    const std::optional<int> width = parts ? ParseWhole(parts->first, kLeastFilmWidth, kMostFilmWidth) : std::nullopt;
    const std::optional<int> height =
        parts ? ParseWhole(parts->second, kLeastFilmHeight, kMostFilmHeight) : std::nullopt;
    if (!width || !height || *width % 2 != 0 || *height % 2 != 0)
        return Refuse(
            kExitUsage,
            SayFormat(L"--size 的值“%s”不对：请写 宽x高 的像素数，宽 %d 到 %d，高 %d 到 %d，都是偶数，例如 1920x1080",
                      Printable(*asked.size), kLeastFilmWidth, kMostFilmWidth, kLeastFilmHeight, kMostFilmHeight));
    film.width = *width;
    film.height = *height;
    return kExitOk;
}

int ReadView(const AskedFilm& asked, FilmRequest& film) {
    if (!asked.view)
        return kExitOk;
    for (const auto& [name, view] : kViews)
        if (asked.view->CompareNoCase(name) == 0) {
            film.view = view;
            return kExitOk;
        }
    return Refuse(kExitUsage,
                  SayFormat(L"--view 的值“%s”不对：请写 top、south、east、north、west、southeast 或 southwest",
                            Printable(*asked.view)));
}

int ReadCamera(const AskedFilm& asked, FilmRequest& film) {
    constexpr double kTurn = 360.0;
    if (!asked.camera)
        return kExitOk;
    const auto parts = SplitAt(*asked.camera, L',');
    const std::optional<double> azimuth = parts ? ParseDecimal(parts->first) : std::nullopt;
    const std::optional<double> altitude = parts ? ParseDecimal(parts->second) : std::nullopt;
    if (!azimuth || !altitude || *altitude < 0.0 || *altitude > kSteepest)
        return Refuse(
            kExitUsage,
            SayFormat(
                L"--camera 的值“%s”不对：请写 方位角,高度角 的度数，方位角从正北起顺时针，高度角 0 到 89，例如 150,35",
                Printable(*asked.camera)));
    film.camera = FilmCamera{std::fmod(*azimuth, kTurn), *altitude};
    return kExitOk;
}

int ReadZoom(const AskedFilm& asked, FilmRequest& film) {
    if (!asked.zoom)
        return kExitOk;
    const std::optional<double> zoom = ParseDecimal(*asked.zoom);
    if (!zoom || *zoom < kLeastZoom || *zoom > kMostZoom)
        return Refuse(kExitUsage,
                      SayFormat(L"--zoom 的值“%s”不对：请写放大的倍数，0.1 到 100，例如 2", Printable(*asked.zoom)));
    film.zoom = *zoom;
    return kExitOk;
}

// The first option of a film that was given without one; null for none.
const wchar_t* LonelyOption(const AskedFilm& asked) {
    const std::pair<bool, const wchar_t*> given[] = {
        {asked.every.has_value(), L"--every"}, {asked.size.has_value(), L"--size"},
        {asked.view.has_value(), L"--view"},   {asked.camera.has_value(), L"--camera"},
        {asked.zoom.has_value(), L"--zoom"},   {asked.isYes, L"--yes"}};
    for (const auto& [isGiven, option] : given)
        if (isGiven)
            return option;
    return nullptr;
}

}  // namespace

std::vector<CString> ViewNames() {
    std::vector<CString> names;
    for (const auto& view : kViews)
        names.emplace_back(view.first);
    return names;
}

AskedFilm AskedFilmOf(SubcommandCall& call) {
    return {call.GetValue(L"--film"),   call.GetValue(L"--every"), call.GetValue(L"--size"), call.GetValue(L"--view"),
            call.GetValue(L"--camera"), call.GetValue(L"--zoom"),  call.HasFlag(L"--yes")};
}

int ReadAskedFilm(const AskedFilm& asked, std::optional<FilmRequest>& film) {
    if (!asked.file) {
        const wchar_t* const lonely = LonelyOption(asked);
        return lonely ? Refuse(kExitUsage, SayFormat(L"%s 只用于录像：请同时给出 --film FILE.avi", lonely)) : kExitOk;
    }
    if (asked.file->IsEmpty())
        return Refuse(kExitUsage, Say(L"--film 的值是空的：请写录像文件，例如 --film sun.avi"));
    if (asked.view && asked.camera)
        return Refuse(kExitUsage, Say(L"--view 和 --camera 只能给出一个"));
    FilmRequest request;
    request.file = *asked.file;
    request.mayReplace = asked.isYes;
    int code = ReadEvery(asked, request);
    for (const auto read : {ReadSize, ReadView, ReadCamera, ReadZoom})
        if (!code)
            code = read(asked, request);
    if (!code)
        film = request;
    return code;
}
