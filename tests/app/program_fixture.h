#pragma once

#include "app/program.h"
#include "player/frm_player.h"
#include "shipped_files.h"
#include "support/generated_media.h"
#include "support/playlist_text.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"
#include "ui/skin_resources.h"

#include <gtest/gtest.h>

#include <QTest>

namespace Orvane::Test {

// The whole program in a portable folder of the shipped files, with the
// message boxes recorded instead of shown.
class Program_Fixture : public testing::Test {
protected:
    Program_Fixture()
    {
        Init_Skin_Resources();
        Copy_Shipped_Files(folder);
    }

    // Starts and waits for the player window to unroll.
    static void Start_Unrolled(Program& program, const QStringList& arguments)
    {
        ASSERT_TRUE(program.Start(arguments));
        ASSERT_TRUE(QTest::qWaitFor([&] { return program.Player_Window().height() == 260; }, 5000));
    }
    // The volume line of the orvan.ini in folder, as written at quitting.
    QByteArray Saved_Volume_Line() const { return folder.Read("orvan.ini").split('\n').value(27); }
    std::string Last_Box() const { return boxes.Last_Text().toStdString(); }

    Temp_Folder folder;
    Message_Box_Recorder boxes;
};

} // namespace Orvane::Test
