#include "tools/soak/User.h"

#include <QGenericPlugin>

/// Loaded by a program that runs with QT_QPA_GENERIC_PLUGINS=kolt-soak.
class SoakPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "soak.json")

public:
    QObject* create(const QString&, const QString&) override { return new KOLT::Soak::User; }
};

#include "SoakPlugin.moc"
