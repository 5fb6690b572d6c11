#pragma once
// HXStyleLibrary: the ready-made symbols the style picker offers, per kind of style. It starts with
// the library compiled into this module (":/stylemanager/symbols.json") and a host may add its own
// symbols, from a file of the same form or one by one. Process-wide; used on the GUI thread.
//
// File form: {"symbols": [{"kind": "marker" | "line" | "fill", "name": "...", ...}, ...]} with
//   marker: "shape" (circle, square, triangle, diamond, cross, star), "size", "color", "outline",
//           "outlineWidth"
//   line:   "width", "color", "dash" (solid, dash, dot, dashdot), "casingWidth", "casingColor"
//   fill:   "color", "pattern" (solid, none, horizontal, vertical, cross, fdiagonal, bdiagonal,
//           diagonalcross), "outline", "outlineWidth"
// and "opacity" (0 to 1) for every kind. Colours are "#rrggbb". Missing values keep the defaults.
#include <QCoreApplication>
#include <QJsonObject>
#include <QString>
#include <vector>

#include "HORefPtr.h"
#include "HOStyle.h"

class HXStyleLibrary {
    Q_DECLARE_TR_FUNCTIONS(HXStyleLibrary)

public:
    struct Symbol {
        QString name;
        HXObjects::HORefPtr<HXObjects::HOStyle> style;
    };

    static HXStyleLibrary& instance();

    // The symbols of one kind, built-in ones first, then the host's in the order added.
    std::vector<Symbol> symbols(HXObjects::HOStyle::StyleType type) const;
    // Adds every symbol of a library file; false with a readable error when the file cannot be
    // read or is not such a library (then nothing is added).
    bool addSymbols(const QString& path, QString* error = nullptr);
    // Adds one symbol; the library keeps a reference to the style.
    void addSymbol(const QString& name, HXObjects::HORefPtr<HXObjects::HOStyle> style);

    // One symbol of the file form as a style; null for an unknown kind.
    static HXObjects::HORefPtr<HXObjects::HOStyle> styleFromJson(const QJsonObject& symbol);

private:
    HXStyleLibrary();

    std::vector<Symbol> mSymbols;
};
