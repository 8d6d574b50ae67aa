#include "libs/tessamap/tiles/TileRequest.h"

namespace Tessa {

TileSource::InFlight::~InFlight()
{
    if (!reply)
        return;
    reply->disconnect();
    reply->abort();
    reply->deleteLater();
}

} // namespace Tessa
