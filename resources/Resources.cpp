#include "resources/Resources.h"

#include <QDir>

void initKoltResources()
{
    Q_INIT_RESOURCE(kolt);
    Q_INIT_RESOURCE(translations);
}
