#pragma once
// A shown map canvas for the editing tests: a 400 x 300 drawing area over the map square (0, 400) x
// (0, 300) of a plain layer, one map unit per pixel with y growing upwards, so the pixel (x, y) is the
// map point (x, 300 - y). run() plays a person's input from a small script, one step per ';':
//   t NAME           install the command pool's tool NAME ("HXObjects::" is added)
//   c X Y [MOD]      left click at pixel (X, Y), with a modifier ("Alt", "Shift"...) held if given
//   d X Y            double click (its first click included)
//   m X Y            move the mouse there, no button held
//   g X1 Y1 X2 Y2    drag with the left button
//   r X Y ENTRY [| EDIT=TEXT ...]  right click; choose ENTRY in the menu and type over the dialog's
//                    line edits (found by object name)
//   k KEYS           a key click such as "Return", "Escape", "Ctrl+C"
//   o TEXT           the current tool's typed command
#include <QKeySequence>
#include <QLineEdit>
#include <QUndoStack>
#include <QtTest>

#include "HOCMDPool.h"
#include "HOCoordinateSystem.h"
#include "HOGeometryWkt.h"
#include "HOMap.h"
#include "HOTestRectLayer.h"
#include "HXInputCanvas.h"
#include "HXMapWidget.h"
#include "HXModalAnswer.h"

const QColor kGround(235, 235, 235);

struct HXEditCanvas {
    // Shows the canvas with its map (in `system`, none by default); false when the picture never came.
    bool show(const char* system = nullptr) {
        canvas.enableWaterMask(false);
        canvas.setWindowState(Qt::WindowNoState);
        canvas.resize(400, 325);
        canvas.show();
        if (!QTest::qWaitForWindowExposed(&canvas)) return false;
        widget = canvas.findChild<HXMapWidget*>();
        if (!widget || widget->size() != QSize(400, 300) || widget->pos() != QPoint(0, 0)) return false;
        map = new HXObjects::HOMap();
        HXObjects::HORefPtr<HXObjects::HOCoordinateSystem> crs =
            system ? HXObjects::HOCoordinateSystem::FromUserInput(system) : nullptr;
        map->AddLayer(new HOTestRectLayer(HXObjects::HORect(0, 400, 0, 300), kGround, crs));
        if (crs) map->SetSpatialReference(crs.get());
        canvas.GetMapView()->SetMap(map);
        canvas.setExtent(HXObjects::HORect(0, 400, 0, 300));
        return QTest::qWaitFor([&] { return !canvas.GetMapView()->IsRendering(); }, 20000);
    }

    HXObjects::HOGraphicsLayer* graphics() const { return map->GetGraphicsLayer().get(); }

    // The elements' geometries as WKT, in drawing order ("*" marks a selected one).
    QStringList elements() const {
        QStringList result;
        for (const auto& element : graphics()->GetElements()) {
            result << HXObjects::HOGeometryWkt::ToWkt(*element->GetGeometry()).toQString() +
                          (graphics()->IsElementSelected(element->GetID()) ? "*" : "");
        }
        return result;
    }

    QString toolName() const {
        return canvas.getMapTool() ? canvas.getMapTool()->GetClassName().toQString() : QString("none");
    }

    void run(const QString& script) {
        for (const QString& step : script.split(';', Qt::SkipEmptyParts)) runStep(step.trimmed());
    }

    HXMapCanvas canvas{HXMapCanvas::MapViewMode, nullptr};
    HXMapWidget* widget = nullptr;
    HXObjects::HORefPtr<HXObjects::HOMap> map;

private:
    void runStep(const QString& step) {
        const QStringList w = step.split(' ', Qt::SkipEmptyParts);
        const auto at = [&](int i) { return QPoint(w[i].toInt(), w[i + 1].toInt()); };
        const QString op = w.value(0);
        if (op == "t") {
            canvas.setMapTool(
                HXObjects::HOCMDPool::GetInstance()->GetTool(("HXObjects::" + w[1]).toUtf8().data()));
        } else if (op == "c") {
            QTest::mouseClick(widget, Qt::LeftButton, modifier(w.value(3)), at(1));
        } else if (op == "d") {
            QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, at(1));
            QTest::mouseDClick(widget, Qt::LeftButton, Qt::NoModifier, at(1));
        } else if (op == "m") {
            move(at(1), Qt::NoButton);
        } else if (op == "g") {
            QTest::mousePress(widget, Qt::LeftButton, Qt::NoModifier, at(1));
            move((at(1) + at(3)) / 2, Qt::LeftButton);
            move(at(3), Qt::LeftButton);
            QTest::mouseRelease(widget, Qt::LeftButton, Qt::NoModifier, at(3));
        } else if (op == "r") {
            rightClick(at(1), step.section(' ', 3));
        } else if (op == "k") {
            const int keys = QKeySequence::fromString(w[1])[0];
            QTest::keyClick(&canvas, Qt::Key(keys & ~Qt::KeyboardModifierMask),
                            Qt::KeyboardModifiers(keys & Qt::KeyboardModifierMask));
        } else if (op == "o") {
            canvas.getMapTool()->OnCommand(step.section(' ', 1).toUtf8().data());
        } else {
            qFatal("unknown step '%s'", qPrintable(step));
        }
    }

    static Qt::KeyboardModifiers modifier(const QString& name) {
        return name.isEmpty() ? Qt::NoModifier
                              : Qt::KeyboardModifiers(QKeySequence::fromString(name + "+A")[0] &
                                                      Qt::KeyboardModifierMask);
    }

    void move(const QPoint& pos, Qt::MouseButtons held) {
        QMouseEvent event(QEvent::MouseMove, pos, widget->mapToGlobal(pos), Qt::NoButton, held,
                          Qt::NoModifier);
        QApplication::sendEvent(widget, &event);
    }

    // The menu is answered with ENTRY, then a dialog it opens gets "EDIT=TEXT" fields typed and OK.
    void rightClick(const QPoint& pos, const QString& choice) {
        const QStringList fields = choice.section('|', 1).split(' ', Qt::SkipEmptyParts);
        HXModalAnswer<QDialog> dialog([&](QDialog* d) {
            for (const QString& field : fields) {
                QLineEdit* edit = d->findChild<QLineEdit*>(field.section('=', 0, 0));
                edit->selectAll();  // typing replaces what the dialog proposed
                QTest::keyClicks(edit, field.section('=', 1));
            }
            d->accept();
        });
        HXPopupAnswer menu(choice.section('|', 0, 0).trimmed());
        QTest::mouseClick(widget, Qt::RightButton, Qt::NoModifier, pos);
    }
};

inline QStringList Unselected(QStringList elements) {
    return elements.replaceInStrings("*", "");
}

// Undoes the edits from stack index `from` on and redoes them: the elements must come back exactly.
inline void CheckUndoRedo(HXEditCanvas& f, const QStringList& before, int from) {
    QUndoStack* stack = f.map->GetUndoStack();
    const QStringList after = f.elements();
    const int end = stack->index();
    stack->setIndex(from);
    QCOMPARE(Unselected(f.elements()), Unselected(before));
    stack->setIndex(end);
    QCOMPARE(f.elements(), after);
}
