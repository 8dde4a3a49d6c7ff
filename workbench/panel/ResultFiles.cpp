// Two buttons, and below them, once there is something, its place and a third one.
#include "workbench/panel/ResultFiles.h"

#include <QDesktopServices>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "platform/base/PlainText.h"
#include "workbench/Texts.h"
#include "workbench/panel/ActionButton.h"
#include "workbench/view/WidgetText.h"

ResultFiles::ResultFiles(QWidget* parent)
    : QWidget(parent),
      m_open(QDesktopServices::openUrl),
      m_report(new QPushButton(this)),
      m_film(new QPushButton(this)),
      m_lines(new QPushButton(this)),
      m_made(new QLabel(this)),
      m_opener(new QPushButton(this)) {
    m_report->setObjectName("MakeReport");
    m_film->setObjectName("MakeFilm");
    m_lines->setObjectName("MakeLinesReport");
    m_lines->hide();
    m_made->setObjectName("MadeFile");
    m_made->setTextFormat(Qt::PlainText);
    m_made->setWordWrap(true);
    m_made->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_opener->setObjectName("OpenMade");
    auto* rows = new QGridLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setVerticalSpacing(4);
    rows->addWidget(m_report, 0, 0);
    rows->addWidget(m_film, 0, 1);
    rows->addWidget(m_lines, 1, 0, 1, 2);
    rows->addWidget(m_made, 2, 0);
    rows->addWidget(m_opener, 2, 1);
    rows->setColumnStretch(0, 1);
    rows->setColumnStretch(1, 1);
    connect(m_lines, &QPushButton::clicked, this, [this] { m_onLinesReport(); });
    connect(m_opener, &QPushButton::clicked, this, [this] { Open(); });
    Clear();
}

void ResultFiles::Follow(QAction& report, QAction& film) {
    FollowAction(*m_report, report);
    FollowAction(*m_film, film);
}

void ResultFiles::SetHasLines(bool hasLines) {
    m_lines->setVisible(hasLines);
}

// Long paths have no blanks to break a line at: the rest of it stands in the tooltip.
void ResultFiles::SetMade(const CString& what, const CString& path) {
    m_path = path;
    const QString file = Shown(Printable(path));
    m_made->setText(Shown(what) + "\n" + file.section('/', -2));
    m_made->setToolTip(file);
    m_made->show();
    m_opener->show();
}

void ResultFiles::Clear() {
    m_path.Empty();
    m_made->hide();
    m_opener->hide();
}

void ResultFiles::Open() const {
    if (!m_open(QUrl::fromLocalFile(Shown(m_path))))
        m_complain(SayFormat(L"这里没有打开“%s”的程序：请从文件夹里打开它", Printable(m_path)));
}

void ResultFiles::Retranslate() {
    m_report->setText(ShownSay(L"报告(&R)..."));
    m_lines->setText(ShownSay(L"等时线的报告(&G)..."));
    m_lines->setToolTip(ShownSay(L"重新画等时线，并把场地的日照写成一份报告"));
    m_film->setText(ShownSay(L"录像(&M)..."));
    m_opener->setText(ShownSay(L"打开(&E)"));
    m_opener->setToolTip(ShownSay(L"用浏览器或播放器打开，报告可以在那里打印"));
    m_made->setAccessibleDescription(ShownSay(L"最近写出的文件"));
}
