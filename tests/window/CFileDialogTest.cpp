// Asking for a file: names typed into the real dialog, its questions, and the seams of tests.
#include "platform/window/CFileDialog.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QToolButton>
#include <QTreeView>
#include <string>

#include "platform/base/Message.h"
#include "support/Recorder.h"
#include "support/TableSwitch.h"
#include "window/BoxOf.h"
#include "window/DialogForTests.h"

namespace {

constexpr const wchar_t* kFilter = L"图纸 (*.dxf)|*.dxf|录像(*.avi)|*.avi;*.AVI|全部 (*.*)|*.*||";

QFileDialog* FilesOf(const ModalWindow& window) {
    return static_cast<QFileDialog*>(static_cast<QWidget*>(window.widget));
}

struct FileDialogs : testing::Test {
    QTemporaryDir folder;
    std::vector<std::string> boxes;

    void TearDown() override { CFileDialog::SetFolder(L""); }

    QString In(const QString& name) const { return folder.filePath(name); }
    void Make(const QString& name) const {
        QFile file(In(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
    }
    // Types a name, answers the dialog, and its questions with `answer`.
    INT_PTR Ask(CFileDialog& dialog, const QString& name, int command = IDOK, int answer = IDOK) {
        const ModalDriver driver([&](const ModalWindow& window) {
            if (window.text.GetLength() > 0) {
                boxes.push_back(ToUtf8(window.text.View()));
                return answer;
            }
            FilesOf(window)->findChild<QLineEdit*>("fileNameEdit")->setText(name);
            return command;
        });
        return dialog.DoModal();
    }
};

TEST_F(FileDialogs, GiveTheFileThatIsNamed) {
    Make("图 1.dxf");
    CFileDialog dialog(TRUE, L"dxf", nullptr, OFN_HIDEREADONLY | OFN_FILEMUSTEXIST, kFilter);
    EXPECT_TRUE(dialog.GetPathName().IsEmpty());
    EXPECT_EQ(Ask(dialog, In("图 1.dxf")), IDOK);
    EXPECT_EQ(ToUtf8(dialog.GetPathName().View()), In("图 1.dxf").toStdString());
    EXPECT_EQ(ToUtf8(dialog.GetFileName().View()), "图 1.dxf");
    EXPECT_EQ(Ask(dialog, In("图 1.dxf"), IDCANCEL), IDCANCEL);
    EXPECT_TRUE(dialog.GetPathName().IsEmpty());
    EXPECT_TRUE(dialog.GetFileName().IsEmpty());
    EXPECT_TRUE(boxes.empty());
}

TEST_F(FileDialogs, OpeningRefusesANameOfNoFileWhenTold) {
    CFileDialog dialog(TRUE, L"dxf", nullptr, OFN_FILEMUSTEXIST, kFilter);
    EXPECT_EQ(Ask(dialog, In("none.dxf")), IDCANCEL);
    EXPECT_EQ(boxes, std::vector<std::string>{"文件“none.dxf”不存在。"});
    boxes.clear();
    CFileDialog any(TRUE, nullptr, nullptr, 0, kFilter);
    EXPECT_EQ(Ask(any, In("none.dxf")), IDOK);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(FileDialogs, SavingAddsTheExtensionToANameWithoutOne) {
    CFileDialog dialog(FALSE, L"dxf", nullptr, OFN_OVERWRITEPROMPT, kFilter);
    EXPECT_EQ(Ask(dialog, In("plan")), IDOK);
    EXPECT_EQ(ToUtf8(dialog.GetFileName().View()), "plan.dxf");
    EXPECT_EQ(Ask(dialog, In("plan.txt")), IDOK);
    EXPECT_EQ(ToUtf8(dialog.GetFileName().View()), "plan.txt");
    EXPECT_TRUE(boxes.empty());
}

TEST_F(FileDialogs, SavingAsksBeforeItTakesAFileThatExists) {
    Make("plan.dxf");
    CFileDialog dialog(FALSE, L"dxf", nullptr, OFN_OVERWRITEPROMPT, kFilter);
    EXPECT_EQ(Ask(dialog, In("plan"), IDOK, IDNO), IDCANCEL);
    EXPECT_EQ(boxes, std::vector<std::string>{"文件“plan.dxf”已经存在。要替换它吗？"});
    EXPECT_EQ(Ask(dialog, In("plan"), IDOK, IDYES), IDOK);
    EXPECT_EQ(boxes.size(), 2U);
    CFileDialog quiet(FALSE, L"dxf", nullptr, 0, kFilter);
    EXPECT_EQ(Ask(quiet, In("plan.dxf")), IDOK);
    EXPECT_EQ(boxes.size(), 2U) << "not told to ask";
}

TEST_F(FileDialogs, ChooseAFolderThatIsThereOrANewOne) {
    QDir(folder.path()).mkdir("old");
    Make("plan.dxf");
    CFolderPickerDialog dialog;
    EXPECT_EQ(Ask(dialog, In("old")), IDOK);
    EXPECT_EQ(ToUtf8(dialog.GetPathName().View()), In("old").toStdString());
    EXPECT_EQ(Ask(dialog, In("new")), IDOK);
    EXPECT_EQ(ToUtf8(dialog.GetPathName().View()), In("new").toStdString());
    EXPECT_FALSE(QFileInfo::exists(In("new"))) << "it is not made";
    EXPECT_EQ(Ask(dialog, In("old"), IDCANCEL), IDCANCEL);
    EXPECT_TRUE(dialog.GetPathName().IsEmpty());
    EXPECT_TRUE(boxes.empty());
}

TEST_F(FileDialogs, ShowFoldersInTheWordsOfFolders) {
    CFolderPickerDialog dialog;
    const ModalDriver driver([&](const ModalWindow& window) {
        const QFileDialog* files = FilesOf(window);
        EXPECT_EQ(files->fileMode(), QFileDialog::Directory);
        EXPECT_EQ(files->windowTitle().toStdString(), "选择文件夹");
        EXPECT_EQ(files->labelText(QFileDialog::FileName).toStdString(), "文件夹(&N)：");
        EXPECT_EQ(files->labelText(QFileDialog::Accept).toStdString(), "选择(&S)");
        return IDCANCEL;
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(driver.GetCount(), 1);
}

TEST_F(FileDialogs, ShowFiltersNamesAndCaptions) {
    const TableSwitch english{{L"打开文件", L"Open File"}};
    CFileDialog open(TRUE, nullptr, In("start.dxf").toStdWString().c_str(), 0, kFilter);
    const ModalDriver driver([&](const ModalWindow& window) {
        QFileDialog* files = FilesOf(window);
        EXPECT_EQ(files->nameFilters(),
                  QStringList({QString::fromUtf8("图纸 (*.dxf)"), QString::fromUtf8("录像 (*.avi *.AVI)"),
                               QString::fromUtf8("全部 (*)")}));
        EXPECT_EQ(files->windowTitle(), "Open File");
        EXPECT_EQ(files->labelText(QFileDialog::FileName).toStdString(), "文件名(&N)：");
        EXPECT_EQ(files->acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(files->findChild<QLineEdit*>("fileNameEdit")->text(), "start.dxf");
        return IDCANCEL;
    });
    EXPECT_EQ(open.DoModal(), IDCANCEL);
    EXPECT_EQ(driver.GetCount(), 1);
}

TEST_F(FileDialogs, BeginWhereAFileWasChosenLastOrWhereTheyAreTold) {
    QDir(folder.path()).mkdir("sub");
    QDir(folder.path()).mkdir("other");
    Make("sub/plan.dxf");
    const auto begins = [this](const wchar_t* name, const std::string& at, const std::string& shown) {
        CFileDialog dialog(FALSE, L"dxf", name, 0, kFilter);
        const ModalDriver driver([&](const ModalWindow& window) {
            EXPECT_EQ(FilesOf(window)->directory().path().toStdString(), at);
            EXPECT_EQ(FilesOf(window)->findChild<QLineEdit*>("fileNameEdit")->text().toStdString(), shown);
            return IDCANCEL;
        });
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    };
    const std::string sub = In("sub").toStdString();
    const std::string other = In("other").toStdString();
    CFileDialog open(TRUE, L"dxf", nullptr, OFN_FILEMUSTEXIST, kFilter);
    ASSERT_EQ(Ask(open, In("sub/plan.dxf")), IDOK);
    begins(nullptr, sub, "");
    begins(L"house.dxf", sub, "house.dxf");
    EXPECT_EQ(Ask(open, In("other/none.dxf"), IDCANCEL), IDCANCEL);
    begins(nullptr, sub, "");
    CFileDialog::SetFolder(In("other").toStdWString().c_str());
    begins(nullptr, other, "");
    begins(In("sub/house.dxf").toStdWString().c_str(), sub, "house.dxf");
    begins(nullptr, other, "");
    CFolderPickerDialog chooser;
    ASSERT_EQ(Ask(chooser, In("sub")), IDOK);
    EXPECT_EQ(ToUtf8(CFileDialog::GetFolder().View()), folder.path().toStdString()) << "where it is found again";
    CFileDialog::SetNextFileForTest(In("other/plan.dxf").toStdWString().c_str());
    EXPECT_EQ(open.DoModal(), IDOK);
    CFileDialog::ShowDialogsAgainForTest();
    EXPECT_EQ(ToUtf8(CFileDialog::GetFolder().View()), other);
    CFileDialog::SetFolder(L"/no/such/folder");
    begins(nullptr, other, "");
}

TEST_F(FileDialogs, KeysAnswerThem) {
    Make("plan.dxf");
    CFileDialog dialog(TRUE);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        const ModalDriver driver([&](const ModalWindow& window) {
            auto* name = FilesOf(window)->findChild<QLineEdit*>("fileNameEdit");
            name->setText(In("plan.dxf"));
            QTest::keyClick(name, key);
            return FilesOf(window)->isVisible() ? IDCANCEL : 0;
        });
        EXPECT_EQ(dialog.DoModal(), key == Qt::Key_Return ? IDOK : IDCANCEL);
    }
}

TEST_F(FileDialogs, ACommandThatTheyDoNotKnowIsADriversMistake) {
    CFileDialog dialog(TRUE);
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(Ask(dialog, "plan.dxf", IDYES), IDCANCEL), "knows nothing of the command 6");
    EXPECT_EQ(Ask(dialog, "plan.dxf", ModalDriver::kCareful), IDCANCEL);
}

TEST_F(FileDialogs, SpeakTheLanguageOfTheProgram) {
    const auto look = [](const std::function<void(const QFileDialog&)>& body) {
        CFileDialog dialog(TRUE, L"dxf", nullptr, 0, kFilter);
        const ModalDriver driver([&body](const ModalWindow& window) {
            body(*FilesOf(window));
            return IDCANCEL;
        });
        dialog.DoModal();
        EXPECT_EQ(driver.GetCount(), 1);
    };
    const auto headings = [](const QFileDialog& dialog) {
        const QAbstractItemModel* model = dialog.findChild<QTreeView*>("treeView")->model();
        std::string text;
        for (int column = 0; column < 4; ++column)
            text += model->headerData(column, Qt::Horizontal).toString().toStdString() + " ";
        return text;
    };
    look([&headings](const QFileDialog& dialog) {
        EXPECT_EQ(headings(dialog), "名称 大小 类型 修改日期 ");
        EXPECT_EQ(dialog.findChild<QToolButton*>("newFolderButton")->toolTip().toStdString(), "新建文件夹");
        EXPECT_EQ(dialog.findChild<QToolButton*>("toParentButton")->toolTip().toStdString(), "上一级");
    });
    const TableSwitch language({{L"名称", L"What"}, {L"上一级", L"Up"}});
    look([&headings](const QFileDialog& dialog) {
        EXPECT_EQ(headings(dialog), "What 大小 类型 修改日期 ");
        EXPECT_EQ(dialog.findChild<QToolButton*>("toParentButton")->toolTip().toStdString(), "Up");
    });
}

TEST_F(FileDialogs, LabelsShowNoMarkOfAKey) {
    CFileDialog dialog(TRUE, L"dxf", nullptr, 0, kFilter);
    const ModalDriver driver([](const ModalWindow& window) {
        const auto* label = FilesOf(window)->findChild<QLabel*>("fileTypeLabel");
        EXPECT_EQ(label->text().toStdString(), "文件类型(&T)：");
        EXPECT_EQ(label->buddy(), FilesOf(window)->findChild<QComboBox*>("fileTypeCombo"))
            << "whose key it is: without one the & is shown";
        return IDCANCEL;
    });
    dialog.DoModal();
    EXPECT_EQ(driver.GetCount(), 1);
}

TEST_F(FileDialogs, GoWithTheirOwner) {
    DialogForTests owner("PUSHBUTTON \"x\", 10, 7, 7, 40, 14\n");
    owner.Run([&](const ModalWindow&) {
        CFileDialog dialog(TRUE, nullptr, nullptr, 0, nullptr, &owner);
        const ModalDriver driver([&](const ModalWindow& window) {
            EXPECT_EQ(window.owner, owner.m_hWnd);
            owner.DestroyWindow();
            return IDOK;
        });
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    });
}

TEST(CFileDialog, IsAnsweredWithoutBeingShown) {
    const ModalDriver driver([](const ModalWindow&) { return IDCANCEL; });
    CFileDialog dialog(TRUE);
    CFileDialog::SetNextFileForTest(L"/some/where.dxf");
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_TRUE(dialog.GetPathName() == L"/some/where.dxf");
    EXPECT_TRUE(dialog.GetFileName() == L"where.dxf");
    CFileDialog::SetNextFileForTest(nullptr);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(driver.GetCount(), 0);
    CFileDialog::ShowDialogsAgainForTest();
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(driver.GetCount(), 1);
}

TEST(CFileDialog, SaysSoWhereNobodyCouldAnswer) {
    Recorder messages;
    SetMessageSink(&Recorder::Take, &messages);
    CFileDialog dialog(TRUE);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    SetMessageSink(nullptr, nullptr);
    ASSERT_EQ(messages.texts.size(), 1U);
    EXPECT_NE(messages.All().find("没有显示器，无法选择文件。"), std::string::npos);
}

}  // namespace
