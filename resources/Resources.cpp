#include "resources/Resources.h"

#include "resources/Translations.h"

#include <QDir>

void initKoltResources()
{
    Q_INIT_RESOURCE(kolt);
    initKoltTranslations();
}
