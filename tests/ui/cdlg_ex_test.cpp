#include "support/temp_folder.h"
#include "ui/cdlg_ex.h"
#include "ui/dialog_scripted_provider.h"

#include <gtest/gtest.h>

#include <QDir>

namespace Orvane {
namespace {

const QChar Nul(0);

// Puts the process's current directory back when the test ends.
class Current_Directory_Guard {
public:
    Current_Directory_Guard() : saved_(QDir::currentPath()) {}
    ~Current_Directory_Guard() { QDir::setCurrent(saved_); }

private:
    QString saved_;
};

class Cdlg_Ex_Test : public testing::Test {
protected:
    QString Folder(const QString& name)
    {
        QDir(folder_.Path()).mkpath(name);
        return QDir(folder_.Path()).filePath(name);
    }

    Current_Directory_Guard guard_;
    Orvane::Test::Temp_Folder folder_;
    Scripted_Dialog_Provider provider_;
    CdlgEx dialog_{provider_};
};

TEST_F(Cdlg_Ex_Test, FilterReachesTheDialogAsNulSeparatedPairs)
{
    dialog_.Set_Filter(QStringLiteral("A|*.a|B|*.b"));
    const QString expected_record = QStringLiteral("A") + Nul + "*.a" + Nul + "B" + Nul + "*.b" + Nul + Nul;
    EXPECT_EQ(dialog_.Filter_Record(), expected_record);
    EXPECT_EQ(CdlgEx::Name_Filters(expected_record), QStringList({"A (*.a)", "B (*.b)"}));

    // The player's filters are already NUL-separated and name their patterns.
    const QString media = QStringLiteral("Video files (*.avi;*.mpg)") + Nul + "*.avi;*.mpg";
    dialog_.Set_Filter(media);
    dialog_.Set_FilterIndex(1);
    dialog_.Set_DialogTitle(QStringLiteral("Open"));
    dialog_.Set_InitDir(QStringLiteral("/films"));
    dialog_.Set_DefaultExt(QStringLiteral("avi"));
    dialog_.ShowOpen();
    ASSERT_EQ(provider_.File_Requests().size(), 1u);
    const File_Dialog_Request& request = provider_.File_Requests()[0];
    EXPECT_EQ(request.name_filters, QStringList({"Video files (*.avi;*.mpg) (*.avi *.mpg)"}));
    EXPECT_EQ(request.selected_filter, 0);
    EXPECT_EQ(request.title, "Open");
    EXPECT_EQ(request.initial_folder, "/films");
    EXPECT_EQ(request.default_suffix, "avi");

    // FilterIndex counts from 1.
    dialog_.Set_Filter(QStringLiteral("A|*.a|B|*.b;*.c"));
    dialog_.Set_FilterIndex(2);
    dialog_.ShowSave();
    const File_Dialog_Request& second = provider_.File_Requests()[1];
    EXPECT_EQ(second.name_filters, QStringList({"A (*.a)", "B (*.b *.c)"}));
    EXPECT_EQ(second.selected_filter, 1);
}

TEST_F(Cdlg_Ex_Test, OpenLeavesItsBuffersUntrimmedAndSaveCutsThem)
{
    const QString films = Folder(QStringLiteral("films"));
    const QString lists = Folder(QStringLiteral("lists"));
    provider_.Queue_Open(QStringList{films + "/a.avi"});
    dialog_.ShowOpen();
    ASSERT_FALSE(dialog_.CancelError());
    EXPECT_EQ(dialog_.FileName().size(), CdlgEx::File_Buffer_Size);
    EXPECT_TRUE(dialog_.FileName().startsWith(films + "/a.avi" + Nul));
    EXPECT_EQ(dialog_.FileName().count(Nul), CdlgEx::File_Buffer_Size - (films + "/a.avi").size());
    EXPECT_TRUE(dialog_.FileTitle().startsWith(QStringLiteral("a.avi") + Nul));
    EXPECT_EQ(CdlgEx::Selected_Files(dialog_.FileName()), QStringList({films + "/a.avi"}));
    // The chosen file's folder becomes the current directory.
    EXPECT_EQ(QDir::currentPath(), films);

    provider_.Queue_Save(lists + "/saved.orx");
    dialog_.ShowSave();
    EXPECT_EQ(dialog_.FileName(), lists + "/saved.orx");
    EXPECT_EQ(dialog_.FileTitle(), "saved.orx");
    EXPECT_EQ(QDir::currentPath(), lists);

    // The "do not change the directory" flag keeps it.
    dialog_.Set_flags(CdlgEx::No_Change_Dir);
    provider_.Queue_Open(QStringList{films + "/b.avi"});
    dialog_.ShowOpen();
    EXPECT_EQ(QDir::currentPath(), lists);
}

TEST_F(Cdlg_Ex_Test, SeveralFilesComeAsTheFolderThenTheNames)
{
    const QString films = Folder(QStringLiteral("films"));
    // Multiple selection, explorer style, long names, and hook/template bits
    // that never reach the dialog.
    dialog_.Set_flags(0x280200 | 0x20 | 0x40 | 0x80);
    EXPECT_EQ(dialog_.File_Record_Flags(), 0x280200);
    EXPECT_EQ(dialog_.flags(), 0x2802E0);
    provider_.Queue_Open(QStringList{films + "/a.avi", films + "/b c.avi"});
    dialog_.ShowOpen();
    ASSERT_EQ(provider_.File_Requests().size(), 1u);
    EXPECT_TRUE(provider_.File_Requests()[0].multiple);
    const QString listed = films + Nul + "a.avi" + Nul + "b c.avi" + Nul + Nul;
    EXPECT_TRUE(dialog_.FileName().startsWith(listed));
    EXPECT_EQ(dialog_.FileName().size(), CdlgEx::File_Buffer_Size);
    EXPECT_EQ(dialog_.FileTitle().count(Nul), dialog_.FileTitle().size());
    EXPECT_EQ(CdlgEx::Selected_Files(dialog_.FileName()), QStringList({films + "/a.avi", films + "/b c.avi"}));
    EXPECT_EQ(QDir::currentPath(), films);

    dialog_.Set_flags(0x80000);
    dialog_.ShowOpen();
    EXPECT_FALSE(provider_.File_Requests()[1].multiple);
}

TEST_F(Cdlg_Ex_Test, CancelIsRecordedUntilACallerClearsIt)
{
    dialog_.Set_FileName(QStringLiteral("before"));
    dialog_.Set_RGBResult(0x123456);
    dialog_.ShowOpen();  // nothing queued: the user cancels
    EXPECT_TRUE(dialog_.CancelError());
    EXPECT_EQ(dialog_.FileName(), "before");

    // A later success leaves the flag set.
    provider_.Queue_Color(QColor(Qt::red));
    dialog_.ShowColor();
    EXPECT_TRUE(dialog_.CancelError());
    EXPECT_EQ(dialog_.RGBResult(), 0x0000FFu);

    // Every kind of dialog sets it on cancel and keeps its results.
    struct Cancelled {
        const char* dialog;
        void (CdlgEx::*show)();
    };
    for (const Cancelled& cancelled : {Cancelled{"open", &CdlgEx::ShowOpen}, Cancelled{"save", &CdlgEx::ShowSave},
                                       Cancelled{"colour", &CdlgEx::ShowColor}, Cancelled{"font", &CdlgEx::ShowFont},
                                       Cancelled{"folder", &CdlgEx::ShowFolder}}) {
        dialog_.Set_CancelError(false);
        dialog_.Set_InitDir(QStringLiteral("4096"));
        dialog_.Set_FontName(QStringLiteral("Serif"));
        (dialog_.*cancelled.show)();
        EXPECT_TRUE(dialog_.CancelError()) << cancelled.dialog;
        EXPECT_EQ(dialog_.FileName(), "before") << cancelled.dialog;
        EXPECT_EQ(dialog_.RGBResult(), 0x0000FFu) << cancelled.dialog;
        EXPECT_EQ(dialog_.InitDir(), "4096") << cancelled.dialog;
        EXPECT_EQ(dialog_.FontName(), "Serif") << cancelled.dialog;
    }
}

TEST_F(Cdlg_Ex_Test, ActionShowsTheDialogOfItsNumberAndOtherNumbersNothing)
{
    for (int action : {0, 5, 6, 7, 9, -1}) {
        dialog_.Set_Action(action);
        EXPECT_EQ(provider_.Dialogs_Shown(), 0) << action;
    }
    EXPECT_FALSE(dialog_.CancelError());

    provider_.Queue_Open(QStringList{Folder(QStringLiteral("a")) + "/open.avi"});
    dialog_.Set_Action(1);
    EXPECT_TRUE(dialog_.FileTitle().startsWith(QStringLiteral("open.avi") + Nul));
    provider_.Queue_Save(Folder(QStringLiteral("b")) + "/save.orx");
    dialog_.Set_Action(2);
    EXPECT_EQ(dialog_.FileTitle(), "save.orx");
    provider_.Queue_Color(QColor(0x12, 0x34, 0x56));
    dialog_.Set_Action(3);
    EXPECT_EQ(dialog_.RGBResult(), 0x563412u);
    provider_.Queue_Font(Font_Choice{QStringLiteral("Sans"), 30, true, false, false, false});
    dialog_.Set_Action(4);
    EXPECT_EQ(dialog_.FontSize(), 30);
    provider_.Queue_Folder(QStringLiteral("/media/cdrom"));
    dialog_.Set_Action(8);
    EXPECT_EQ(dialog_.InitDir(), "/media/cdrom");
    EXPECT_EQ(provider_.Dialogs_Shown(), 5);
    EXPECT_FALSE(dialog_.CancelError());
}

TEST_F(Cdlg_Ex_Test, ColourFontAndFolderStartFromTheirPropertiesAndWriteBack)
{
    dialog_.Set_RGBResult(0xFF8000);  // blue 0xFF, green 0x80, red 0
    provider_.Queue_Color(QColor(1, 2, 3));
    dialog_.ShowColor();
    ASSERT_EQ(provider_.Initial_Colors().size(), 1u);
    EXPECT_EQ(provider_.Initial_Colors()[0], QColor(0, 0x80, 0xFF));
    EXPECT_EQ(dialog_.RGBResult(), 0x030201u);

    dialog_.Set_FontName(QStringLiteral("DejaVu Sans"));
    dialog_.Set_FontSize(24);
    dialog_.Set_Bold(true);
    dialog_.Set_Italic(false);
    dialog_.Set_Underline(true);
    dialog_.Set_StrikeThru(false);
    provider_.Queue_Font(Font_Choice{QStringLiteral("DejaVu Serif"), 12, false, true, false, true});
    dialog_.ShowFont();
    ASSERT_EQ(provider_.Initial_Fonts().size(), 1u);
    const Font_Choice& initial = provider_.Initial_Fonts()[0];
    EXPECT_EQ(initial.name, "DejaVu Sans");
    EXPECT_EQ(initial.size, 24);
    EXPECT_TRUE(initial.bold);
    EXPECT_TRUE(initial.underline);
    EXPECT_FALSE(initial.italic);
    EXPECT_EQ(dialog_.FontName(), "DejaVu Serif");
    EXPECT_EQ(dialog_.FontSize(), 12);
    EXPECT_FALSE(dialog_.Bold());
    EXPECT_TRUE(dialog_.Italic());
    EXPECT_FALSE(dialog_.Underline());
    EXPECT_TRUE(dialog_.StrikeThru());

    dialog_.Set_DialogPrompt(QStringLiteral("Choose the drive"));
    dialog_.Set_InitDir(QStringLiteral("4096"));
    provider_.Queue_Folder(QStringLiteral("/media/cdrom1"));
    dialog_.ShowFolder();
    EXPECT_EQ(provider_.Folder_Prompts(), std::vector<QString>({"Choose the drive"}));
    EXPECT_EQ(dialog_.InitDir(), "/media/cdrom1");

    // Reading IconSize makes it 32, whatever was written.
    dialog_.Set_IconSize(16);
    EXPECT_EQ(dialog_.IconSize(), 32);
}

} // namespace
} // namespace Orvane
