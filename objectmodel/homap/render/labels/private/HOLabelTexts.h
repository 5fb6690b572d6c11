#pragma once
// HOLabelTexts: the label text of every feature of a layer, read once through OGR for one label
// expression and kept in one buffer (a million labels are one allocation, not a million strings).
// Read on the render thread through a handle of its own, so no lock is shared with the GUI thread.
#include <QString>
#include <QStringRef>
#include <memory>
#include <vector>

#include "HOLabelSettings.h"
#include "HOTrackCancel.h"
#include "source/private/HOFeatureTopology.h"

namespace HXObjects {

class HOLabelTexts {
public:
    // Null when the source cannot be opened, a field is missing, or the read was cancelled.
    static std::shared_ptr<const HOLabelTexts> Read(const QString& source, const QString& layerName,
                                                    const std::shared_ptr<const HOFeatureTopology>& topology,
                                                    const HOLabelSettings& settings,
                                                    const HOTrackCancel* cancel);

    // True when read for this expression and these features (an edited layer has new ones).
    bool Fits(const QString& expression, const std::shared_ptr<const HOFeatureTopology>& topology) const {
        return m_expression == expression && m_topology.lock() == topology;
    }
    QStringRef Text(std::size_t feature) const {
        return QStringRef(&m_buffer, int(m_start[feature]), int(m_start[feature + 1] - m_start[feature]));
    }

private:
    QString m_expression;
    std::weak_ptr<const HOFeatureTopology> m_topology;
    QString m_buffer;
    std::vector<uint32_t> m_start;  // per feature, then the buffer's length
};

}  // namespace HXObjects
