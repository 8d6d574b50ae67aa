#pragma once

#include "export/ExportOptions.h"
#include "export/ui/DialogExport.h"
#include "profile/Profile.h"

class QCheckBox;

namespace KOLT {

/// Exports the flights as GPX tracks, with or without waypoints and speeds.
class DialogExportGpx : public DialogExport
{
    Q_OBJECT

public:
    DialogExportGpx(const Profile& profile, Source source, const GpxOptions& options,
                    QWidget* parent = nullptr);

    /// The options as set in the dialog.
    GpxOptions options() const;

protected:
    ExportStatus write(QIODevice& device, const ExportProgress& progress) override;

private:
    const Profile& m_profile;
    QCheckBox* m_wayPoints;
    QCheckBox* m_speeds;
};

} // namespace KOLT
