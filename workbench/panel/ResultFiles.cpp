// Three buttons, and below them, once there is something, its place and two more.
#include "workbench/panel/ResultFiles.h"

#include <QFileInfo>
#include <QGridLayout>
#include <QPushButton>

#include "platform/base/PlainText.h"
#include "workbench/Texts.h"
#include "workbench/panel/ActionButton.h"
#include "workbench/panel/DesktopOpener.h"
#include "workbench/view/ElidedLabel.h"
#include "workbench/view/WidgetText.h"

ResultFiles::ResultFiles(QWidget* parent)
    : QWidget(parent),
      m_open([this](const QUrl& url, const std::function<void()>& onFailed) { OpenOnDesktop(url, *this, onFailed); }),
      m_report(new QPushButton(this)),
      m_film(new QPushButton(this)),
      m_lines(new QPushButton(this)),
      m_made(new ElidedLabel(this)),
      m_opener(new QPushButton(this)),
      m_folder(new QPushButton(this)) {
    m_report->setObjectName("MakeReport");
    m_film->setObjectName("MakeFilm");
    m_lines->setObjectName("MakeLinesReport");
    m_lines->hide();
    m_made->setObjectName("MadeFile");
    m_made->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_opener->setObjectName("OpenMade");
    m_folder->setObjectName("OpenFolder");
    auto* rows = new QGridLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setVerticalSpacing(4);
    rows->addWidget(m_report, 0, 0);
    rows->addWidget(m_film, 0, 1);
    rows->addWidget(m_lines, 1, 0, 1, 2);
    rows->addWidget(m_made, 2, 0, 1, 2);
    rows->addWidget(m_opener, 3, 0);
    rows->addWidget(m_folder, 3, 1);
    rows->setColumnStretch(0, 1);
    rows->setColumnStretch(1, 1);
    connect(m_lines, &QPushButton::clicked, this, [this] { m_onLinesReport(); });
    connect(m_opener, &QPushButton::clicked, this, [this] { Open(m_path); });
    connect(m_folder, &QPushButton::clicked, this, [this] { Open(m_path.Left(m_path.ReverseFind(L'/'))); });
    Clear();
}

void ResultFiles::Follow(QAction& report, QAction& film) {
    FollowAction(*m_report, report);
    FollowAction(*m_film, film);
}

void ResultFiles::SetHasLines(bool hasLines) {
    m_lines->setVisible(hasLines);
}

// The end of a path tells most; all of it stands in the tooltip.
void ResultFiles::SetMade(const CString& what, const CString& path) {
    m_path = path;
    const QString file = Shown(Printable(path));
    m_made->ShowText(Shown(what) + " " + file.section('/', -2));
    m_made->setToolTip(file);
    m_made->show();
    m_opener->show();
    m_folder->show();
}

void ResultFiles::Clear() {
    m_path.Empty();
    m_made->hide();
    m_opener->hide();
    m_folder->hide();
}

void ResultFiles::Open(const CString& path) const {
    if (!QFileInfo::exists(Shown(path)))
        return m_complain(SayFormat(L"%s 已经不在了：被移走、改名或删除了", Printable(path)));
    m_open(QUrl::fromLocalFile(Shown(path)),
           [this, path] { m_complain(SayFormat(L"这里没有打开“%s”的程序：请用别的程序打开它", Printable(path))); });
}

void ResultFiles::Retranslate() {
    m_report->setText(ShownSay(L"报告(&R)..."));
    m_lines->setText(ShownSay(L"等时线的报告(&G)..."));
    m_lines->setToolTip(ShownSay(L"重新画等时线，并把场地的日照写成一份报告"));
    m_film->setText(ShownSay(L"录像(&M)..."));
    m_opener->setText(ShownSay(L"打开(&E)"));
    m_opener->setToolTip(ShownSay(L"用浏览器、播放器或看图的程序打开，报告可以在浏览器里打印"));
    m_folder->setText(ShownSay(L"打开文件夹(&F)"));
    m_folder->setToolTip(ShownSay(L"打开它所在的文件夹"));
    m_made->setAccessibleDescription(ShownSay(L"最近写出的文件"));
}
