#include "HXFileOpening.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QToolButton>

#include "HOCallbackKey.h"
#include "HOLayerOpeningEvent.h"
#include "HXDataSources.h"

using namespace HXObjects;

namespace {
constexpr int kSteps = 1000;  // of the progress bar
}  // namespace

HXFileOpening::HXFileOpening(QWidget* parent)
    : QWidget(parent), mName(new QLabel(this)), mBar(new QProgressBar(this)), mCancel(new QToolButton(this)) {
    setObjectName("fileOpening");
    mBar->setRange(0, kSteps);
    mBar->setMaximumWidth(160);
    mBar->setTextVisible(false);
    mCancel->setText(tr("Cancel"));
    mCancel->setToolTip(tr("Stop opening"));
    mCancel->setAutoRaise(true);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 0, 4, 0);
    layout->addWidget(mName);
    layout->addWidget(mBar);
    layout->addWidget(mCancel);
    connect(mCancel, &QToolButton::clicked, this, &HXFileOpening::cancel);
    hide();
}

HXFileOpening::~HXFileOpening() {
    if (mCurrent) mCurrent->Cancel();
    stopListening();
}

void HXFileOpening::open(const QStringList& paths) {
    mWaiting << paths;
    if (!mCurrent) startNext();
}

void HXFileOpening::cancel() {
    mWaiting.clear();
    if (!mCurrent) return;
    mCurrent->Cancel();
    stopListening();
    mCurrent = nullptr;
    hide();
    emit idle();
}

void HXFileOpening::startNext() {
    if (mWaiting.isEmpty()) {
        hide();
        emit idle();
        return;
    }
    const QString path = mWaiting.takeFirst();
    mName->setText(tr("Opening %1").arg(QFileInfo(path).fileName()));
    mBar->setValue(0);
    show();
    mCurrent = HOLayerOpening::Start(HOString(path));
    HOBindMember(mCurrent->ProgressSignal, this, &HXFileOpening::onProgress);
    HOBindMember(mCurrent->FinishedSignal, this, &HXFileOpening::onFinished);
}

void HXFileOpening::onProgress(void*, HOEvent* event) {
    mBar->setValue(int(static_cast<HOLayerOpeningEvent*>(event)->progress * kSteps));
}

void HXFileOpening::onFinished(void*, HOEvent*) {
    const HORefPtr<HOLayerOpening> done = mCurrent;
    stopListening();
    mCurrent = nullptr;
    std::vector<HORefPtr<HOLayer>> layers = done->GetLayers();
    HXDataSources::sortForDrawing(layers);
    const QString errors = done->GetErrors().toQString();
    emit opened(done->GetPath().toQString(), layers, errors.isEmpty() ? QStringList() : errors.split('\n'));
    startNext();
}

void HXFileOpening::stopListening() {
    if (!mCurrent) return;
    HOUnbindMember(mCurrent->ProgressSignal, this, &HXFileOpening::onProgress);
    HOUnbindMember(mCurrent->FinishedSignal, this, &HXFileOpening::onFinished);
}
