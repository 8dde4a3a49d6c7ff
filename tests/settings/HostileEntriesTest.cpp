// Whatever a person can type or paste into the fields of the dialogs of the settings: it is a number and is taken, or
// it is none and is refused once, and nothing else changes.
#include <QLocale>
#include <optional>

#include "settings/OrvoDataPrecisSetDlg.h"
#include "settings/OrvoSetStdDlg.h"
#include "settings/SettingsDialogs.h"
#include "support/FileTree.h"
#include "support/GermanLocale.h"

namespace {

// An entry, and what it is as a number and as a whole number.
struct Entry {
    QString text;
    std::optional<double> number;
    std::optional<int> whole;
};

std::vector<Entry> HostileTexts() {
    const QString emoji = QString::fromUtf8("😀");
    return {{"", {}, {}},
            {" ", {}, {}},
            {QString(10000, '7'), {}, {}},
            {QString(10000, ' '), {}, {}},
            {emoji, {}, {}},
            {"1" + emoji, {}, {}},
            {"1e309", {}, {}},
            {"1e-400", {}, {}},
            {"nan", {}, {}},
            {"-inf", {}, {}},
            {"-0", 0.0, 0},
            {"0x10", {}, {}},
            {"1,5", {}, {}},
            {"1.5", 1.5, {}},
            {QString::fromUtf8("１２"), {}, {}},
            {QString::fromUtf8("１２．５"), {}, {}},
            {"1 2", {}, {}},
            {"1\n2", {}, {}},
            {"1\r\n2", {}, {}},
            {" 42 ", 42.0, 42},
            {"+7", 7.0, 7},
            {"+-7", {}, {}},
            {"2147483647", 2147483647.0, 2147483647},
            {"2147483648", 2147483648.0, {}},
            {"-2147483648", -2147483648.0, std::numeric_limits<int>::min()},
            {"%s%n", {}, {}},
            {"<a b=\"c\">&", {}, {}},
            {QString(QChar(0xD800)), {}, {}}};
}

// Pastes an entry into one field of the first window, presses OK, answers whatever is told, and cancels what is still
// open. Gives how often something was told.
template <class Dialog>
int TryEntry(int id, const QString& entry, INT_PTR& result, Dialog&& run) {
    int told = 0;
    const ModalDriver driver([&](const ModalWindow& window) {
        if (!window.text.IsEmpty()) {
            ++told;
            return int{IDOK};
        }
        if (entry.isEmpty())
            Type(window, id, entry);
        else
            Paste(window, id, entry);
        Click(window, IDOK);
        return static_cast<QWidget*>(window.widget)->isVisible() ? IDCANCEL : 0;
    });
    result = run();
    return told;
}

class HostileEntries : public SettingsDialogs {
protected:
    void SetUp() override {
        SettingsDialogs::SetUp();
        Analyse(L"北京");
        OrvoStdSet& standard = AddStandard(L"甲");
        standard.m_nLimitWidth = 1;
        standard.m_nValidSunType = 1;
        standard.m_nAllMaxContinueTime = 1;
    }

    static double Field(int id) {
        const OrvoStdSet& standard = g_SunDataSet.GetStd(0);
        switch (id) {
            case 2036:
                return standard.m_dMaxWidth;
            case 2037:
                return standard.m_dMinWidth;
            case 2044:
                return standard.m_dSpace;
            case 2051:
                return standard.m_nMinContinueTime;
            case 2052:
                return standard.m_nMinValidAngle;
            case 2055:
                return standard.m_nMinValidTime;
            default:
                return standard.m_nMinMaxValidTime;
        }
    }
    // The settings as their file has them.
    static std::string Saved() {
        const FileTree folder;
        QcDtDictionary saved(L"S");
        EXPECT_TRUE(g_SunDataSet.SaveSunDataSetDict(&saved));
        EXPECT_TRUE(saved.SaveToXML(folder.File("SunSet.xml")));
        QcDtDictionary read;
        EXPECT_TRUE(read.ReadFromXML(folder.File("SunSet.xml")));
        OrvoDataSet loaded;
        EXPECT_TRUE(loaded.LoadSunDataSetDict(&read));
        QcDtDictionary again(L"S");
        EXPECT_TRUE(loaded.SaveSunDataSetDict(&again));
        EXPECT_TRUE(again.SaveToXML(folder.File("again.xml")));
        EXPECT_EQ(folder.Read("again.xml"), folder.Read("SunSet.xml")) << "what is saved comes back";
        return folder.Read("SunSet.xml");
    }

    static void TryStandards(int id, const Entry& entry, std::optional<double> expected) {
        const double before = Field(id);
        const std::string saved = Saved();
        INT_PTR result = 0;
        const int told = TryEntry(id, entry.text, result, [] { return SunStdDlgDoModal(nullptr); });
        const std::string what = std::to_string(id) + " " + entry.text.left(20).toStdString();
        EXPECT_EQ(told, expected ? 0 : 1) << what;
        EXPECT_EQ(result, expected ? IDOK : IDCANCEL) << what;
        EXPECT_EQ(Field(id), expected.value_or(before)) << what;
        if (!expected || *expected == before)
            EXPECT_EQ(Saved(), saved) << what;
    }

    static void TryPrecision(int id, const Entry& entry, double most) {
        const bool good = entry.number && *entry.number >= 1e-9 && *entry.number <= most;
        const double before[] = {g_nSunAngPrec, g_nSunDistPrec, g_nSunWinOffset};
        INT_PTR result = 0;
        const int told = TryEntry(id, entry.text, result, [] {
            OrvoDataPrecisSetDlg dialog(nullptr, false);
            return dialog.DoModal();
        });
        const std::string what = std::to_string(id) + " " + entry.text.left(20).toStdString();
        EXPECT_EQ(told, good ? 0 : 1) << what;
        EXPECT_EQ(result, good ? IDOK : IDCANCEL) << what;
        if (good && id == 2006)
            EXPECT_EQ(g_nSunDistPrec, *entry.number) << what;
        if (!good) {
            const double after[] = {g_nSunAngPrec, g_nSunDistPrec, g_nSunWinOffset};
            EXPECT_TRUE(std::equal(std::begin(before), std::end(before), std::begin(after))) << what;
        }
    }
};

}  // namespace

TEST_F(HostileEntries, AreNumbersOrRefusedInTheStandards) {
    for (const Entry& entry : HostileTexts()) {
        for (const int id : {2036, 2044}) {
            g_SunDataSet.GetStd(0).m_nMaxContinue = 1;
            TryStandards(id, entry, entry.number);
        }
    }
}

TEST_F(HostileEntries, AreWholeNumbersOrRefusedInTheStandards) {
    for (const Entry& entry : HostileTexts()) {
        const auto expected = entry.whole ? std::optional<double>(*entry.whole) : std::nullopt;
        g_SunDataSet.GetStd(0).m_nMaxContinue = 1;
        TryStandards(2051, entry, expected);
        g_SunDataSet.GetStd(0).m_nMaxContinue = 0;
        TryStandards(2055, entry, expected);
    }
}

TEST_F(HostileEntries, AreTakenAlikeByAllFieldsOfTheStandards) {
    for (const Entry& entry : {Entry{"x", {}, {}}, Entry{"31", 31.0, 31}, Entry{"0.5", 0.5, {}}}) {
        const auto whole = entry.whole ? std::optional<double>(*entry.whole) : std::nullopt;
        g_SunDataSet.GetStd(0).m_nMaxContinue = 0;
        for (const int id : {2052, 2055, 2056})
            TryStandards(id, entry, whole);
        TryStandards(2037, entry, entry.number);
    }
}

TEST_F(HostileEntries, AreNumbersInTheirRangeOrRefusedInThePrecisions) {
    for (const Entry& entry : HostileTexts())
        TryPrecision(2006, entry, 1e7);
    const std::pair<int, double> others[] = {{2008, 360.0}, {2007, 1e10}, {2009, 1000.0}};
    for (const auto& [id, most] : others)
        for (const Entry& entry : {Entry{"x", {}, {}}, Entry{"-0", 0.0, 0}, Entry{"5", 5.0, 5}})
            TryPrecision(id, entry, most);
}

TEST_F(HostileEntries, AreReadAlikeUnderAGermanLocale) {
    const QLocale machine;
    const GermanLocale german;
    QLocale::setDefault(QLocale(QLocale::German));
    g_SunDataSet.GetStd(0).m_dMaxWidth = 1800.5;
    for (const Entry& entry : {Entry{"1,5", {}, {}}, Entry{"1.5", 1.5, {}}, Entry{"1.000,5", {}, {}}}) {
        TryStandards(2036, entry, entry.number);
        TryPrecision(2006, entry, 1e7);
    }
    const ModalDriver driver([](const ModalWindow& window) {
        EXPECT_EQ(EditText(window, 2036), "1.5");
        EXPECT_EQ(Item<QDateEdit>(window, 2038)->text().toStdString(), "2026-12-22");
        EXPECT_EQ(EditText(window, 2042), "09:00");
        return int{IDOK};
    });
    SunStdDlgDoModal(nullptr);
    QLocale::setDefault(machine);
}

// What the masks do not take is not there, so that the time stays.
TEST_F(HostileEntries, LeaveTimesWhatTheyAre) {
    for (const Entry& entry : HostileTexts()) {
        const ModalDriver driver([&entry](const ModalWindow& window) {
            for (const int id : {2042, 2043}) {
                if (entry.text.isEmpty()) {
                    auto* edit = Item<QLineEdit>(window, id);
                    edit->setFocus();
                    edit->home(false);
                    for (const auto key : {Qt::Key_Delete, Qt::Key_F5, Qt::Key_End, Qt::Key_Delete})
                        QTest::keyClick(edit, key);
                } else {
                    Paste(window, id, entry.text);
                }
            }
            EXPECT_EQ(EditText(window, 2042), "09:00");
            EXPECT_EQ(EditText(window, 2043), "15:00");
            return int{IDOK};
        });
        EXPECT_EQ(SunStdDlgDoModal(nullptr), IDOK);
        EXPECT_EQ(driver.GetCount(), 1) << "nothing is told";
    }
    EXPECT_EQ(g_SunDataSet.GetStd(0).m_dgStartTime.getDegree(), 9.0);
    EXPECT_EQ(g_SunDataSet.GetStd(0).m_dgEndTime.getDegree(), 15.0);
}

TEST_F(HostileEntries, TypedIntoTimesLeaveTheirDigits) {
    const ModalDriver driver([](const ModalWindow& window) {
        auto* edit = Item<QLineEdit>(window, 2042);
        edit->setFocus();
        edit->home(false);
        for (const char* typed : {"x", "-", "1", ":", "/", "😀", "１", "1", " ", "b", "2", ".", "é", "3"})
            QTest::sendKeyEvent(QTest::Click, edit, Qt::Key_unknown, QString::fromUtf8(typed), Qt::NoModifier);
        EXPECT_EQ(EditText(window, 2042), "11:23");
        return int{IDOK};
    });
    EXPECT_EQ(SunStdDlgDoModal(nullptr), IDOK);
    EXPECT_DOUBLE_EQ(g_SunDataSet.GetStd(0).m_dgStartTime.getDegree(), 11 + 23 / 60.0);
}

TEST_F(HostileEntries, NeverLeaveTheDatePickerWithoutADate) {
    for (const Entry& entry : HostileTexts()) {
        const ModalDriver driver([&entry](const ModalWindow& window) {
            auto* picker = Item<QDateEdit>(window, 2038);
            picker->setFocus();
            picker->selectAll();
            QApplication::clipboard()->setText(entry.text);
            QTest::keySequence(picker->findChild<QLineEdit*>(), QKeySequence::Paste);
            QTest::keyClick(picker, Qt::Key_Delete);
            QTest::keyClick(picker, Qt::Key_Backspace);
            return int{IDOK};
        });
        EXPECT_EQ(SunStdDlgDoModal(nullptr), IDOK);
        EXPECT_EQ(driver.GetCount(), 1);
        const OrvoDate& date = g_SunDataSet.GetStd(0).m_date;
        EXPECT_TRUE(QDate::isValid(date.m_nYear, date.m_nMonth, date.m_nDay)) << entry.text.left(20).toStdString();
    }
    Saved();
}

// A bad entry can be shut away by another control; it is still refused, and can still be mended.
TEST_F(HostileEntries, CanBeMendedWhereTheirFieldWasShutMeanwhile) {
    g_SunDataSet.GetStd(0).m_nMaxContinue = 0;
    int told = 0;
    const ModalDriver driver([&told](const ModalWindow& window) {
        if (!window.text.IsEmpty()) {
            ++told;
            return int{IDOK};
        }
        Type(window, 2052, "x");
        Choose(window, 2054, 0);
        Type(window, 2055, "y");
        Click(window, 2032);
        Click(window, IDOK);
        EXPECT_EQ(told, 1);
        EXPECT_TRUE(static_cast<QWidget*>(window.widget)->isVisible());
        Choose(window, 2054, 1);
        Type(window, 2052, "5");
        Click(window, 2031);
        Type(window, 2055, "6");
        Click(window, IDOK);
        return 0;
    });
    EXPECT_EQ(SunStdDlgDoModal(nullptr), IDOK);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(g_SunDataSet.GetStd(0).m_nMinValidAngle, 5);
    EXPECT_EQ(g_SunDataSet.GetStd(0).m_nMinValidTime, 6);
}
