// The common-dialog object, with scripted dialogs. The configuration
// window's tests cover the font, colour and folder dialogs as it uses them,
// the playlist window's the filters it gives and the files it adds.
#include "support/temp_folder.h"
#include "ui/cdlg_ex.h"
#include "ui/dialog_scripted_provider.h"

#include <gtest/gtest.h>

#include <QDir>

namespace Orvane {
namespace {

const QChar Nul(0);

// An open dialog's result as the platform returns it: padded with NULs to the buffer's size.
QString Padded(const QString& result) { return result + QString(CdlgEx::File_Buffer_Size - result.size(), Nul); }

class Cdlg_Ex_Test : public testing::Test {
protected:
    ~Cdlg_Ex_Test() override { QDir::setCurrent(saved_directory_); }
    const QString saved_directory_ = QDir::currentPath();
    Orvane::Test::Temp_Folder folder_;
    Scripted_Dialog_Provider provider_;
    CdlgEx dialog_{provider_};
};

TEST_F(Cdlg_Ex_Test, FilterReachesTheDialogAsNulSeparatedPairsAndTheIconSizeReadsAs32)
{
    dialog_.Set_Filter("A|*.a|B|*.b");
    EXPECT_EQ(dialog_.Filter_Record(), QStringLiteral("A") + Nul + "*.a" + Nul + "B" + Nul + "*.b" + Nul + Nul);

    dialog_.Set_Filter("A|*.a|B|*.b;*.c");
    dialog_.Set_FilterIndex(2);  // counted from 1
    dialog_.ShowSave();
    const File_Dialog_Request& request = provider_.File_Requests().at(0);
    EXPECT_EQ(request.name_filters, QStringList({"A (*.a)", "B (*.b *.c)"}));
    EXPECT_EQ(request.selected_filter, 1);

    dialog_.Set_IconSize(16);
    EXPECT_EQ(dialog_.IconSize(), 32);  // reading it makes it 32, whatever was written
}

TEST_F(Cdlg_Ex_Test, OpenResultsStayUntrimmedSaveResultsAreCutAndTheDirectoryFollowsTheChoice)
{
    const QString films = folder_.File("films"), lists = folder_.File("lists");
    ASSERT_TRUE(QDir().mkpath(films) && QDir().mkpath(lists));
    provider_.Queue_Open(QStringList{films + "/a.avi"});
    dialog_.Set_Action(1);
    EXPECT_EQ(dialog_.FileName(), Padded(films + "/a.avi"));
    EXPECT_TRUE(dialog_.FileTitle().startsWith(QStringLiteral("a.avi") + Nul));
    EXPECT_EQ(CdlgEx::Selected_Files(dialog_.FileName()), QStringList({films + "/a.avi"}));
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
    EXPECT_EQ(dialog_.FileName(), Padded(films + Nul + "a.avi" + Nul + "b c.avi" + Nul + Nul));
    EXPECT_EQ(dialog_.FileTitle().count(Nul), dialog_.FileTitle().size());
    EXPECT_EQ(QDir::currentPath(), films);
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

} // namespace
} // namespace Orvane
