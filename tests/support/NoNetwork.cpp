// Linked to every test with windows, so that the map does not contact public servers.

#include <QByteArray>

namespace {

[[maybe_unused]] const bool isOffline = qputenv("KOLT_OFFLINE", QByteArray("1"));

} // namespace
