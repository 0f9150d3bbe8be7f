#include "support/fake_player_view.h"

namespace Orvane::Test {

void Fake_Player_View::Resize(Menu& entries, int count)
{
    std::erase_if(entries, [count](const auto& entry) { return entry.first > 1 && entry.first > count; });
    for (int k = 2; k <= count; ++k)
        entries.try_emplace(k);
}

QStringList Fake_Player_View::Visible(const Menu& entries)
{
    QStringList shown;
    for (const auto& [number, entry] : entries) {
        if (entry.visible)
            shown.append(entry.checked ? entry.caption + QLatin1Char('*') : entry.caption);
    }
    return shown;
}

} // namespace Orvane::Test
