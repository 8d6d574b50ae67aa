#include "resources/Resources.h"

#include "resources/Translations.h"

#include <QDir>

#ifdef KOLT_OWN_SVG
#include <QtPlugin>

Q_IMPORT_PLUGIN(SvgPlugin)
#endif

void initKoltResources()
{
    Q_INIT_RESOURCE(kolt);
    initKoltTranslations();
}
