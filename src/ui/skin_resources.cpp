#include "ui/skin_resources.h"

#include <QtGlobal>

// Qt's resource initialiser must be named from the global namespace.
static void Register_Skin_Resource_Data()
{
    Q_INIT_RESOURCE(skin);
}

namespace Orvane {

void Init_Skin_Resources()
{
    Register_Skin_Resource_Data();
}

QString Skin_Path(const QString& name)
{
    return QStringLiteral(":/skin/") + name + QStringLiteral(".svg");
}

} // namespace Orvane
