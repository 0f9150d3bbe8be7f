#include "support/temp_folder.h"
#include "ui/cdlg_ex.h"
#include "ui/dialog_scripted_provider.h"

#include <gtest/gtest.h>

#include <QDir>

#include <tuple>

namespace Orvane {
namespace {

const QChar Nul(0);

class Cdlg_Ex_Test : public testing::Test {
protected:
    ~Cdlg_Ex_Test() override { QDir::setCurrent(saved_directory_); }
    QString Folder(const QString& name) { return QDir().mkpath(folder_.File(name)) ? folder_.File(name) : QString(); }

    const QString saved_directory_ = QDir::currentPath();
    Orvane::Test::Temp_Folder folder_;
    Scripted_Dialog_Provider provider_;
    CdlgEx dialog_{provider_};
};

TEST_F(Cdlg_Ex_Test, FilterReachesTheDialogAsNulSeparatedPairs)
{
    dialog_.Set_Filter("A|*.a|B|*.b");
    EXPECT_EQ(dialog_.Filter_Record(), QStringLiteral("A") + Nul + "*.a" + Nul + "B" + Nul + "*.b" + Nul + Nul);
    // The player's filters are already NUL-separated and name their patterns.
    dialog_.Set_Filter(QStringLiteral("Video (*.avi;*.mpg)") + Nul + "*.avi;*.mpg");
    EXPECT_EQ(CdlgEx::Name_Filters(dialog_.Filter_Record()), QStringList({"Video (*.avi;*.mpg) (*.avi *.mpg)"}));

    dialog_.Set_Filter("A|*.a|B|*.b;*.c");
    dialog_.Set_FilterIndex(2);  // counted from 1
    dialog_.Set_DialogTitle("Save");
    dialog_.Set_InitDir("/films");
    dialog_.Set_DefaultExt("orx");
    dialog_.ShowSave();
    const File_Dialog_Request& request = provider_.File_Requests().at(0);
    EXPECT_EQ(request.name_filters, QStringList({"A (*.a)", "B (*.b *.c)"}));
    EXPECT_EQ(request.selected_filter, 1);
    EXPECT_EQ(QStringList({request.title, request.initial_folder, request.default_suffix}),
              QStringList({"Save", "/films", "orx"}));
}

TEST_F(Cdlg_Ex_Test, OpenResultsStayUntrimmedSaveResultsAreCutAndTheDirectoryFollowsTheChoice)
{
    const QString films = Folder("films"), lists = Folder("lists");
    provider_.Queue_Open(QStringList{films + "/a.avi"});
    dialog_.Set_Action(1);
    const QString chosen = films + "/a.avi";
    EXPECT_EQ(dialog_.FileName(), chosen + QString(CdlgEx::File_Buffer_Size - chosen.size(), Nul));
    EXPECT_TRUE(dialog_.FileTitle().startsWith(QStringLiteral("a.avi") + Nul));
    EXPECT_EQ(CdlgEx::Selected_Files(dialog_.FileName()), QStringList({chosen}));
    EXPECT_EQ(QDir::currentPath(), films);

    provider_.Queue_Save(lists + "/saved.orx");
    dialog_.Set_Action(2);
    EXPECT_EQ(QStringList({dialog_.FileName(), dialog_.FileTitle()}), QStringList({lists + "/saved.orx", "saved.orx"}));
    EXPECT_EQ(QDir::currentPath(), lists);

    dialog_.Set_flags(CdlgEx::No_Change_Dir);
    provider_.Queue_Open(QStringList{films + "/b.avi"});
    dialog_.ShowOpen();
    EXPECT_EQ(QDir::currentPath(), lists);

    // Multiple selection, explorer style, long names, and hook/template bits that never reach the dialog.
    dialog_.Set_flags(0x280200 | 0x20 | 0x40 | 0x80);
    EXPECT_EQ(dialog_.File_Record_Flags(), 0x280200);
    provider_.Queue_Open(QStringList{films + "/a.avi", films + "/b c.avi"});
    dialog_.ShowOpen();
    EXPECT_TRUE(provider_.File_Requests().at(3).multiple);
    const QString listed = films + Nul + "a.avi" + Nul + "b c.avi" + Nul + Nul;
    EXPECT_EQ(dialog_.FileName(), listed + QString(CdlgEx::File_Buffer_Size - listed.size(), Nul));
    EXPECT_EQ(dialog_.FileTitle().count(Nul), dialog_.FileTitle().size());
    EXPECT_EQ(CdlgEx::Selected_Files(dialog_.FileName()), QStringList({films + "/a.avi", films + "/b c.avi"}));
    EXPECT_EQ(QDir::currentPath(), films);

    dialog_.Set_flags(0x80000);
    dialog_.ShowOpen();
    EXPECT_FALSE(provider_.File_Requests().at(4).multiple);
}

TEST_F(Cdlg_Ex_Test, CancelIsRecordedUntilACallerClearsItAndOtherActionsShowNothing)
{
    for (int action : {0, 5, 6, 7, 9, -1})
        dialog_.Set_Action(action);
    EXPECT_EQ(provider_.Dialogs_Shown(), 0);
    EXPECT_FALSE(dialog_.CancelError());

    dialog_.Set_FileName("before");
    dialog_.Set_RGBResult(0x123456);
    dialog_.Set_InitDir("4096");
    dialog_.Set_FontName("Serif");
    // Nothing queued: every dialog is cancelled and keeps its results.
    for (int action : {1, 2, 3, 4, 8}) {
        SCOPED_TRACE(action);
        dialog_.Set_CancelError(false);
        dialog_.Set_Action(action);
        EXPECT_TRUE(dialog_.CancelError());
        EXPECT_EQ(QStringList({dialog_.FileName(), dialog_.InitDir(), dialog_.FontName()}),
                  QStringList({"before", "4096", "Serif"}));
        EXPECT_EQ(dialog_.RGBResult(), 0x123456u);
    }
    EXPECT_EQ(provider_.Dialogs_Shown(), 5);

    provider_.Queue_Color(QColor(Qt::red));
    dialog_.ShowColor();
    EXPECT_TRUE(dialog_.CancelError()) << "a later success leaves the flag set";
    EXPECT_EQ(dialog_.RGBResult(), 0x0000FFu);
}

TEST_F(Cdlg_Ex_Test, ColourFontAndFolderStartFromTheirPropertiesAndWriteBack)
{
    dialog_.Set_RGBResult(0xFF8000);  // blue 0xFF, green 0x80, red 0
    provider_.Queue_Color(QColor(1, 2, 3));
    dialog_.Set_Action(3);
    EXPECT_EQ(provider_.Initial_Colors().at(0), QColor(0, 0x80, 0xFF));
    EXPECT_EQ(dialog_.RGBResult(), 0x030201u);

    dialog_.Set_FontName("DejaVu Sans");
    dialog_.Set_FontSize(24);
    dialog_.Set_Bold(true);
    dialog_.Set_Underline(true);
    provider_.Queue_Font(Font_Choice{"DejaVu Serif", 12, false, true, false, true});
    dialog_.Set_Action(4);
    const Font_Choice& initial = provider_.Initial_Fonts().at(0);
    EXPECT_EQ(std::tie(initial.name, initial.size, initial.bold, initial.italic, initial.underline, initial.strike_out),
              std::tuple(QString("DejaVu Sans"), 24, true, false, true, false));
    EXPECT_EQ(std::tuple(dialog_.FontName(), dialog_.FontSize(), dialog_.Bold(), dialog_.Italic(), dialog_.Underline(),
                         dialog_.StrikeThru()), std::tuple(QString("DejaVu Serif"), 12, false, true, false, true));

    dialog_.Set_DialogPrompt("Choose the drive");
    dialog_.Set_InitDir("4096");
    provider_.Queue_Folder("/media/cdrom1");
    dialog_.Set_Action(8);
    EXPECT_EQ(provider_.Folder_Prompts(), std::vector<QString>({"Choose the drive"}));
    EXPECT_EQ(dialog_.InitDir(), "/media/cdrom1");
    EXPECT_FALSE(dialog_.CancelError());

    dialog_.Set_IconSize(16);
    EXPECT_EQ(dialog_.IconSize(), 32);  // reading it makes it 32
}

} // namespace
} // namespace Orvane
