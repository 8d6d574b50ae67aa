#pragma once

#include "export/DialogExport.h"
#include "export/ExportOptions.h"
#include "export/SampleSpan.h"
#include "profile/Profile.h"

class QCheckBox;
class QComboBox;
class QRadioButton;
class QSpinBox;

namespace KOLT {

/// The options of a CSV export, with the rows and the size that they lead to.
class DialogExportCsv : public DialogExport
{
    Q_OBJECT

public:
    DialogExportCsv(const Profile& profile, Source source, QWidget* parent = nullptr);

protected:
    void storeOptions() override;
    ExportStatus write(QIODevice& device, const ExportProgress& progress) override;

private:
    void createOptions();
    void readSettings();
    CsvOptions options() const;
    void showEstimate();

    const Profile& m_profile;
    const std::optional<SampleSpan> m_span; ///< found once: it takes a look at every sample
    QComboBox* m_separator = nullptr;
    QCheckBox* m_comma = nullptr;
    QSpinBox* m_resolution = nullptr;
    QRadioButton* m_all = nullptr;
    QRadioButton* m_selected = nullptr;
};

} // namespace KOLT
