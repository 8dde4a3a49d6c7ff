// Pictures go from the painter through the stamp into the recorder, one at a time.
#include "workbench/film/Film.h"

#include <QImage>
#include <cmath>

#include "analysis/ShadingScene.h"
#include "avi/OrvoAVIFile.h"
#include "facts/ClockText.h"
#include "platform/base/PlainText.h"
#include "platform/host/DrawingUnits.h"
#include "platform/host/ExitCode.h"
#include "platform/host/Progress.h"
#include "platform/window/HostFrame.h"
#include "workbench/Texts.h"
#include "workbench/film/FilmScene.h"
#include "workbench/film/FilmStamp.h"
#include "workbench/film/RecordingFile.h"
#include "workbench/terminal/Complaint.h"

namespace {

constexpr int kRate = 1;  // a picture lasts a second, and a second is one position of the stream
constexpr int kBits = 24;

// What the shots of one film have in common.
struct Stage {
    ScenePainter& painter;
    const ViewCamera& camera;
    const FilmStamp& stamp;
    const AnalysisRequest& request;
};

// One picture into the recorder; an empty text, or what went wrong.
CString AddPicture(const Stage& stage, double moment, const CString& file, OrvoAVIFile& recorder) {
    GlPicture drawn;
    if (!stage.painter.PaintInSun(stage.camera, SunOfDrawing(stage.request, moment), PaintEffort(), drawn))
        return Say(L"画面画不出来：图形系统拒绝了，或内存不足；请减小 --size");
    const QImage seen(drawn.rgba.data(), drawn.width, drawn.height, QImage::Format_RGBX8888);
    QImage picture = seen.convertToFormat(QImage::Format_RGB32);
    stage.stamp.Draw(picture, moment, stage.camera);
    CBitmap bitmap;
    if (picture.isNull() || !bitmap.CreateBitmap(picture.width(), picture.height(), 1, 32, picture.constBits()))
        return Say(L"画面画不出来：图形系统拒绝了，或内存不足；请减小 --size");
    return recorder.AddFrame(bitmap) ? CString() : NotWrittenText(file);
}

std::uint64_t BytesOf(const FilmRequest& request, std::size_t pictures) {
    return RecordingBytes(request.width, request.height, kBits, pictures);
}

}  // namespace

std::vector<double> FilmMoments(SunPeriod span, int every) {
    constexpr double kSame = 1e-9;  // hours
    std::vector<double> moments;
    for (int number = 0;; ++number) {
        const double moment = span.start + static_cast<double>(number) * every / kMinutesPerHour;
        if (!(moment <= span.end + kSame))
            return moments;
        moments.push_back(moment);
    }
}

CString FilmSizeText(const FilmRequest& request, const DayRequest& day) {
    const std::optional<SunPeriod> span = FindSpan(day);
    if (!span || !(span->start < span->end))
        return {};
    const std::size_t count = FilmMoments(*span, request.every).size();
    return SayFormat(L"%d 幅画面，每幅 1 秒，%d x %d，约 %s", static_cast<int>(count), request.width, request.height,
                     BytesText(BytesOf(request, count)));
}

int Film::Check(const DayRequest& day, const CString& drawing) {
    const std::optional<SunPeriod> span = FindSpan(day);
    if (!span || !(span->start < span->end))
        return Refuse(kExitFailed, Say(L"没有可以录像的时段：请检查地区、标准和它的时段"));
    m_moments = FilmMoments(*span, m_request.every);
    const int code = CheckRecording({m_request.file, L"--film", m_request.mayReplace}, {drawing});
    if (code)
        return code;
    CString wrong =
        WhyNoRoom(m_request.file, BytesOf(m_request, m_moments.size()), Say(L"请减小 --size，或加大 --every"));
    if (!wrong.IsEmpty() || !PreparePictures(wrong))
        return Refuse(kExitFailed, wrong);
    return kExitOk;
}

int Film::Prepare() {
    CString wrong;
    m_painter = ScenePainter::Open(wrong);
    if (!m_painter)
        return Refuse(kExitFailed, wrong);
    Note(SayFormat(L"录像“%s”：%d 幅画面，%d x %d，不压缩，约 %s", Printable(m_request.file),
                   static_cast<int>(m_moments.size()), m_request.width, m_request.height,
                   BytesText(BytesOf(m_request, m_moments.size()))));
    return kExitOk;
}

int Film::Shoot(const AcDbDatabase& drawing, const AnalysisRequest& request, const AnalysisAnswer& answer,
                Progress& progress, const std::function<bool()>& isGivenUp) {
    const Scene scene = BuildShadingScene(drawing, request.heights, request.windowLayers);
    const Scene marks = WindowMarks(answer.windows, UnitOf(drawing).millimetres.value_or(1.0));
    const ViewCamera camera = FilmCameraOf(m_request, scene, marks, request.north);
    if (!m_painter->SetScene(scene, marks))
        return Refuse(kExitFailed, Say(L"画面画不出来：图形系统拒绝了，或内存不足；请减小 --size"));
    const FilmStamp stamp(request, answer);
    const int total = static_cast<int>(m_moments.size());
    int count = 0;
    GrowingRecording file(m_request.file);
    {
        OrvoAVIFile recorder(file.GetName(), -1, -1, kRate);
        recorder.SetColorNum(kBits);
        while (count < total && progress.Show(count + 1, total, Say(L"正在录制第 %d 幅，共 %d 幅"))) {
            const CString wrong = AddPicture({*m_painter, camera, stamp, request},
                                             m_moments[static_cast<std::size_t>(count)], m_request.file, recorder);
            if (!wrong.IsEmpty())
                return Refuse(kExitFailed, wrong);
            ++count;
        }
    }
    if (count == 0 || (count < total && isGivenUp && isGivenUp()))
        return Refuse(kExitFailed, Say(L"已取消，没有录像"));
    const CString wrong = file.IsComplete() ? file.TakePlace() : IncompleteText(m_request.file);
    if (!wrong.IsEmpty())
        return Refuse(kExitFailed, wrong);
    if (count < total)
        return Refuse(kExitFailed,
                      SayFormat(L"已取消：“%s”里有前 %d 幅画面，共 %d 幅", Printable(m_request.file), count, total));
    Note(SayFormat(L"%d 幅画面录入“%s”，每幅 1 秒", total, Printable(m_request.file)));
    return kExitOk;
}
