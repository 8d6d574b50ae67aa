#include "resources/Translations.h"

#include <QDir>

void initKoltTranslations()
{
    Q_INIT_RESOURCE(translations);
}
