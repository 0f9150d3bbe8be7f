// The program as a screen reader sees it: every skinned control announced
// with a role and a name, and pressed through its accessible action.
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
    if (!root)
        return found;
    if (root->role() == role && root->text(QAccessible::Name) == name)
        found.append(root);
    for (int i = 0; i < root->childCount(); ++i)
        found += Find(root->child(i), role, name);
    return found;
}

QAccessibleInterface* Of(QObject* object)
{
    return QAccessible::queryAccessibleInterface(object);
}

class Accessibility_Test : public Orvane::Test::Program_Fixture {
protected:
    void Start(const QStringList& arguments)
    {
        Start_Unrolled(program, arguments);
        ASSERT_TRUE(QTest::qWaitFor([&] { return program.Model().Track_Count() == int(!arguments.isEmpty()); },
                                    3000));
    }

    // The one push button of the player window with this name.
    QAccessibleInterface* Player_Button(const QString& name)
    {
        const auto found = Find(Of(&program.Player_Window()), QAccessible::Button, name);
        return found.size() == 1 ? found.first() : nullptr;
    }

    Program program{folder.Path()};
};

TEST_F(Accessibility_Test, EachPlayerButtonIsAPushButtonNamedByItsToolTipWithAPressAction)
{
    Start({});
    for (int index = 0; index < 13; ++index) {
        const QString name = program.Texts().Get_Text(int16_t(index + 1));
        QAccessibleInterface* button = Player_Button(name);
        ASSERT_NE(button, nullptr) << name.toStdString();
        EXPECT_EQ(button->object(), program.Player_Window().Img_Btn(index)) << name.toStdString();
        ASSERT_NE(button->actionInterface(), nullptr);
        EXPECT_EQ(button->actionInterface()->actionNames(), QStringList{QAccessibleActionInterface::pressAction()});
    }
}

// Pressing through the accessible action and clicking with the mouse go the
// same way, skip rules included.
enum class Press_By { Mouse, Accessible_Action };

class Pressing_Lecture : public Accessibility_Test, public testing::WithParamInterface<Press_By> {
protected:
    void Press(const QString& name, int index)
    {
        if (GetParam() == Press_By::Mouse) {
            QTest::mouseClick(program.Player_Window().Img_Btn(index), Qt::LeftButton);
            return;
        }
        QAccessibleInterface* button = Player_Button(name);
        ASSERT_NE(button, nullptr);
        button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }
};

TEST_P(Pressing_Lecture, PlaysTheOpenFileAndTheButtonComesBackUp)
{
    Start({Orvane::Test::Media().Wav});
    ASSERT_TRUE(program.Graph().Is_Open());
    ASSERT_FALSE(program.State().Is_Playing);
    Picture_Button* lecture = program.Player_Window().Img_Btn(1);
    Press("Lecture", 1);
    EXPECT_TRUE(program.State().Is_Playing);
    EXPECT_EQ(lecture->Top(), lecture->Resting_Top());
    ASSERT_TRUE(QTest::qWaitFor([this] { return program.Player_Window().Time_Text() != "00:00:00"; }, 4000));
}

TEST_P(Pressing_Lecture, WithoutMediaNothingHappensAndTheButtonDoesNotSink)
{
    Start({});
    Picture_Button* lecture = program.Player_Window().Img_Btn(1);
    Press("Lecture", 1);
    EXPECT_FALSE(program.State().Is_Playing);
    EXPECT_EQ(lecture->Top(), lecture->Resting_Top());
    EXPECT_TRUE(boxes.Boxes().empty());
}

INSTANTIATE_TEST_SUITE_P(Both, Pressing_Lecture, testing::Values(Press_By::Mouse, Press_By::Accessible_Action));

} // namespace
} // namespace Orvane
