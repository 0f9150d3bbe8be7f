// The language reader on any Lang.ini, for each of the shipped languages.
#include "fuzz_support.h"

#include "language/text_table.h"
#include "ui/message_box.h"

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    Orvane::Fuzz::Start(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace Orvane;
    Fuzz::Write_Input(QStringLiteral("Lang.ini"), data, size);
    Message_Box_Recorder recorder;
    // The second column is reached only through a name found on line 3.
    for (const char* language : {"Français", "English"}) {
        Text_Table texts;
        if (texts.Load_Language(Fuzz::Input_Folder(), QString::fromUtf8(language)))
            texts.Get_Text(9999);
    }
    return 0;
}
