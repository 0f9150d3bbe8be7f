// The configuration reader on any orvan.ini, with the shipped language file.
#include "fuzz_support.h"

#include "config/config_file.h"
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
    const QString path = Fuzz::Write_Input(QStringLiteral("orvan.ini"), data, size);
    Message_Box_Recorder recorder;
    Settings settings;
    Text_Table texts;
    Read_Config_File(path, Fuzz::Shipped_Language_Folder(), settings, texts);
    return 0;
}
