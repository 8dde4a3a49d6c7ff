// A program without windows: films the shadow that a post casts on the ground, hour by hour on a winter's day.
//
// usage: shadow-film PLACE FILE.avi
#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <vector>

#include "OrvoDataBase.h"  // all of the module
#include "facts/DayTerms.h"
#include "facts/PlaceSearch.h"
#include "facts/SunDay.h"
#include "facts/SunPosition.h"

namespace {

constexpr CalendarDay kDay = {2026, 1, 20};  // greater cold, the day of many standards
constexpr double kPost = 10.0;               // metres
constexpr int kFirstHour = 9;                // true solar time
constexpr int kLastHour = 15;
constexpr int kPicture = 240;  // pixels, each a quarter of a metre
constexpr double kPixelsPerMetre = 4.0;

void Print(std::FILE* stream, const CString& text) {
    std::fprintf(stream, "%s\n", ToUtf8(text.View()).c_str());
}

// Where the shadow of a point falls on a face. The module's light travels from the sun to the scene.
QcGePoint ShadowOn(QcGeFace3dEX& face, const QcGePoint& point, const SunDirection& sun) {
    float m[4][4] = {};
    face.CreateShadowMatrix(m, QcGeVector3dEX(-sun.east, -sun.north, -sun.up), true);
    const std::array<double, 4> from = {point.x, point.y, point.z, 1.0};
    std::array<double, 3> to = {};
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column)
            to[row] += m[column][row] * from[column];
    return {to[0], to[1], to[2]};
}

// One record for each hour with sun: the post's foot, the tip of its shadow, and the hour.
QcDynArray<SunWinData> ShadowsOf(const SunDay& day) {
    const QcGePoint foot = {0.0, 0.0, 0.0};
    const QcGePoint top = {0.0, 0.0, kPost};
    QcGeFace3dEX ground({-1.0, -1.0, 0.0}, {1.0, -1.0, 0.0}, {1.0, 1.0, 0.0}, {-1.0, 1.0, 0.0}, true);
    QcDynArray<SunWinData> shadows;
    for (int hour = kFirstHour; hour <= kLastHour; ++hour) {
        const SunDirection sun = DirectionOfSun(day, hour);
        if (ground.IsSunLightOn(QcGeVector3dEX(-sun.east, -sun.north, -sun.up), sun.up > 0.0))
            shadows.Append(SunWinData(foot, ShadowOn(ground, top, sun), hour));
    }
    return shadows;
}

// The ground from above, north up, with the post in the middle of the lower edge.
bool RecordPicture(OrvoAVIFile& film, const SunWinData& shadow) {
    constexpr DWORD kGround = 0xE0E0D0;
    constexpr DWORD kShadow = 0x303040;
    std::vector<DWORD> pixels(kPicture * kPicture, kGround);
    for (int part = 0; part <= kPicture; ++part) {
        const double share = static_cast<double>(part) / kPicture;
        const long column = std::lround(kPicture / 2.0 + shadow.m_pt2.x * share * kPixelsPerMetre);
        const long row = std::lround(kPicture - 1.0 - shadow.m_pt2.y * share * kPixelsPerMetre);
        if (column >= 0 && column < kPicture && row >= 0 && row < kPicture)
            pixels[row * kPicture + column] = kShadow;
    }
    CBitmap picture;
    return picture.CreateBitmap(kPicture, kPicture, 1, 32, pixels.data()) && film.AddFrame(picture);
}

// The recorder finishes its file when it goes.
bool RecordFilm(const QcDynArray<SunWinData>& shadows, const CString& path) {
    OrvoAVIFile film(path.GetString(), kPicture, kPicture, 1);
    film.SetColorNum(24);
    for (const SunWinData* shadow = shadows.GetFirst(); shadow; shadow = shadows.GetNext(shadow))
        if (!RecordPicture(film, *shadow))
            return false;
    return film.IsOK();
}

void PrintShadows(const QcDynArray<SunWinData>& shadows) {
    for (const SunWinData* shadow = shadows.GetFirst(); shadow; shadow = shadows.GetNext(shadow)) {
        CString line;
        line.Format(L"%2d:00  %6.2f m east  %6.2f m north", static_cast<int>(shadow->m_dValue), shadow->m_pt2.x,
                    shadow->m_pt2.y);
        Print(stdout, line);
    }
}

int Film(const CString& name, const CString& path) {
    const std::optional<Place> place = FindPlace(name);
    if (!place) {
        Print(stderr, UnknownPlaceText(name));
        return 1;
    }
    // The recorder would ask whether to replace it, and there is nobody to answer.
    if (std::filesystem::exists(ToUtf8(path.View()))) {
        Print(stderr, path + L" is there already: give another name");
        return 1;
    }
    const DayTerms terms = TermsFor(kDay);
    CString line;
    line.Format(L"%s, %s, declination %.4f degrees", place->FullName(), terms.term.name, terms.declination);
    Print(stdout, line);
    const QcDynArray<SunWinData> shadows = ShadowsOf(ComputeSunDay(terms, *place));
    PrintShadows(shadows);
    if (shadows.GetFirst() && RecordFilm(shadows, path))
        return 0;
    Print(stderr, L"nothing was recorded: there was no sun, or the file could not be written");
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        Print(stderr, L"usage: shadow-film PLACE FILE.avi");
        return 2;
    }
    // What a host does when it loads the module.
    if (!LoadSunData() || !LoadSunSterm())
        return 1;
    return Film(FromUtf8(argv[1]), FromUtf8(argv[2]));
}
