#pragma once
// HXIdentifyPanel: the attributes of the features the identify tool found, one branch per feature.
#include <QDockWidget>
#include <QPair>
#include <QVector>

class QTreeWidget;

class HXIdentifyPanel : public QDockWidget {
    Q_OBJECT

public:
    using Attributes = QVector<QPair<QString, QString>>;

    explicit HXIdentifyPanel(QWidget* parent);

    QTreeWidget* tree() const { return mTree; }

public slots:
    void clear();
    void addFeature(const QString& layerName, int featureId, const Attributes& attributes);

private:
    QTreeWidget* mTree;
};
