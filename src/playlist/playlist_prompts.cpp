#include "playlist/playlist_prompts.h"

#include "language/text_table.h"
#include "ui/message_box.h"

namespace Orvane {

void Message_Box_Prompts::Refuse(int16_t text_number)
{
    Message_Box(texts_.Get_Text(text_number), Box_Style::Critical_Ok);
}

bool Message_Box_Prompts::Confirm(int16_t text_number)
{
    return Message_Box(texts_.Get_Text(text_number), Box_Style::Ok_Cancel) == Box_Answer::Ok;
}

} // namespace Orvane
