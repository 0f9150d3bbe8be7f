#pragma once

#include "app/program.h"
#include "player/frm_player.h"
#include "player/unroll.h"
#include "support/generated_media.h"
#include "support/playlist_text.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"
#include "ui/skin_resources.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTest>

namespace Orvane::Test {

// Makes folder a portable program folder: the shipped language file beside a
// copy of the first orvan.ini that the program may rewrite.
inline void Copy_Shipped_Files(const Temp_Folder& folder)
{
    QFile::copy(QStringLiteral(ORVANE_SOURCE_DIR "/resources/Lang.ini"), folder.File("Lang.ini"));
    QFile::copy(QStringLiteral(ORVANE_SOURCE_DIR "/resources/orvan.ini"), folder.File("orvan.ini"));
    QFile::setPermissions(folder.File("orvan.ini"), QFile::ReadOwner | QFile::WriteOwner);
}

// The whole program in a portable folder of the shipped files, with the
// message boxes recorded instead of shown.
class Program_Fixture : public testing::Test {
protected:
    Program_Fixture()
    {
        Init_Skin_Resources();
        Copy_Shipped_Files(folder);
    }

    // Starts and waits for the player window to unroll; the command line is
    // read on its last tick, which stops its timer. With a file and a switch,
    // waits for it to play.
    static void Start_Unrolled(Program& program, const QStringList& arguments)
    {
        ASSERT_TRUE(program.Start(arguments));
        ASSERT_TRUE(QTest::qWaitFor([&] { return !program.Unroll().Timer_Display().isActive(); }, 5000));
        if (arguments.size() > 1) {
            ASSERT_TRUE(QTest::qWaitFor([&] { return program.State().Is_Playing; }, 8000));
        }
    }
    std::string Last_Box() const { return boxes.Last_Text().toStdString(); }

    Temp_Folder folder;
    Message_Box_Recorder boxes;
};

} // namespace Orvane::Test
