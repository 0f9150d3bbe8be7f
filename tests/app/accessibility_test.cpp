// The program as a screen reader sees it: every skinned control announced
// with a role and a name, and pressed through its accessible action.
#include "player/playback_session.h"
#include "playlist/playlist_model.h"
#include "program_fixture.h"
#include "ui/picture_button.h"

#include <QAccessible>

namespace Orvane {
namespace {

// Every accessible below root (root included) with this role and name.
QList<QAccessibleInterface*> Find(QAccessibleInterface* root, QAccessible::Role role, const QString& name)
{
    QList<QAccessibleInterface*> found;
    if (root && root->role() == role && root->text(QAccessible::Name) == name)
        found.append(root);
    for (int i = 0; root && i < root->childCount(); ++i)
        found += Find(root->child(i), role, name);
    return found;
}

class Accessibility_Test : public Orvane::Test::Program_Fixture {
protected:
    // The one push button of the player window with this name.
    QAccessibleInterface* Player_Button(const QString& name)
    {
        const auto found =
            Find(QAccessible::queryAccessibleInterface(&program.Player_Window()), QAccessible::Button, name);
        return found.size() == 1 ? found.first() : nullptr;
    }

    Program program{folder.Path()};
};

// Every button of the player bar is a push button named by its tool tip, and
// pressing through the accessible action goes as a click does, skip rules
// included: without media nothing plays.
TEST_F(Accessibility_Test, EachPlayerButtonIsAnnouncedAndPressedAsTheMouseClicksIt)
{
    Start_Unrolled(program, {});
    for (int index = 0; index < 13; ++index) {
        const QString name = program.Texts().Get_Text(int16_t(index + 1));
        SCOPED_TRACE(name.toStdString());
        QAccessibleInterface* button = Player_Button(name);
        ASSERT_NE(button, nullptr);
        EXPECT_EQ(button->object(), program.Player_Window().Img_Btn(index));
        ASSERT_NE(button->actionInterface(), nullptr);
        EXPECT_EQ(button->actionInterface()->actionNames(), QStringList{QAccessibleActionInterface::pressAction()});
    }

    const Picture_Button* lecture = program.Player_Window().Img_Btn(1);
    QAccessibleActionInterface* press = Player_Button("Lecture")->actionInterface();
    press->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(program.State().Is_Playing);
    EXPECT_EQ(lecture->Top(), lecture->Resting_Top());

    program.Open_File(Orvane::Test::Media().Wav, false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return program.Graph().Is_Open(); }, 5000));
    QTest::mouseClick(program.Player_Window().Img_Btn(1), Qt::LeftButton);
    EXPECT_TRUE(program.State().Is_Playing);
    program.Session().Pause();
    press->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(program.State().Is_Playing);
    EXPECT_EQ(lecture->Top(), lecture->Resting_Top());
    EXPECT_TRUE(QTest::qWaitFor([&] { return program.Player_Window().Time_Text() != "00:00:00"; }, 4000));
    EXPECT_TRUE(boxes.Boxes().empty()) << Last_Box();
}

} // namespace
} // namespace Orvane
