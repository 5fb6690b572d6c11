#include "HOLayerOpening.h"

#include <QCoreApplication>
#include <QThreadPool>

#include "HODataSource.h"
#include "HOLayerOpeningEvent.h"

namespace HXObjects {

namespace {
// The least rise of the share read worth telling the GUI about.
constexpr double kProgressStep = 0.01;
}  // namespace

HOLayerOpening::HOLayerOpening(const HOString& path) : m_path(path) {}
HOLayerOpening::~HOLayerOpening() = default;

HORefPtr<HOLayerOpening> HOLayerOpening::Start(const HOString& path) {
    HORefPtr<HOLayerOpening> opening(new HOLayerOpening(path));
    QThreadPool::globalInstance()->start([opening] { opening->read(); });
    return opening;
}

HOString HOLayerOpening::GetPath() const {
    return m_path;
}

void HOLayerOpening::Cancel() {
    m_cancel = true;
}

double HOLayerOpening::GetProgress() const {
    return m_progress;
}

bool HOLayerOpening::IsFinished() const {
    return m_finished;
}

bool HOLayerOpening::IsCancelled() const {
    return m_finished && m_cancel;
}

std::vector<HORefPtr<HOLayer>> HOLayerOpening::GetLayers() const {
    return m_layers;
}

HOString HOLayerOpening::GetErrors() const {
    return m_errors;
}

void HOLayerOpening::read() {
    HOString errors;
    std::vector<HORefPtr<HOLayer>> layers;
    if (HORefPtr<HODataSource> source = HODataSource::Open(m_path, &errors))
        layers = source->OpenLayers(&errors, [this](double done) {
            report(done);
            return !m_cancel;
        });
    finish(std::move(layers), errors);
}

void HOLayerOpening::post(std::function<void()> call) {
    // The opening stays alive until its calls have run.
    HORefPtr<HOLayerOpening> self(this);
    if (QCoreApplication* app = QCoreApplication::instance())
        QMetaObject::invokeMethod(
            app, [self, call = std::move(call)] { call(); }, Qt::QueuedConnection);
}

void HOLayerOpening::report(double progress) {
    if (progress < m_posted + kProgressStep) return;
    m_posted = progress;
    post([this, progress] {
        m_progress = progress;
        HOLayerOpeningEvent event;
        event.progress = progress;
        ProgressSignal.fire(this, &event);
    });
}

void HOLayerOpening::finish(std::vector<HORefPtr<HOLayer>> layers, const HOString& errors) {
    // Cancelled after the last read, it is still cancelled: the host said so before it heard the end.
    post([this, layers = std::move(layers), errors] {
        m_finished = true;
        if (!m_cancel) {
            m_layers = layers;
            m_errors = errors;
            m_progress = 1;
        }
        HOLayerOpeningEvent event;
        event.progress = m_progress;
        event.cancelled = m_cancel;
        FinishedSignal.fire(this, &event);
    });
}

}  // namespace HXObjects
