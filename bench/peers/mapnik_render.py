"""Renders one layer of a GeoPackage with Mapnik and prints the seconds spent reading and drawing.

usage: /usr/bin/python3 mapnik_render.py GPKG LAYER KIND MINX MINY MAXX MAXY OUT.png
KIND is polygon, line or point; the styles match the MapServer mapfiles bench/run writes.
"""
import sys
import time

import mapnik


def symbolizers(kind):
    if kind == "polygon":
        fill = mapnik.PolygonSymbolizer()
        fill.fill = mapnik.Color(170, 200, 150)
        outline = mapnik.LineSymbolizer()
        outline.stroke = mapnik.Color(60, 90, 60)
        outline.stroke_width = 1.0
        return [fill, outline]
    if kind == "line":
        line = mapnik.LineSymbolizer()
        line.stroke = mapnik.Color(40, 80, 160)
        line.stroke_width = 1.0
        return [line]
    dot = mapnik.MarkersSymbolizer()
    dot.fill = mapnik.Color(200, 50, 40)
    dot.width = mapnik.Expression("3")
    dot.height = mapnik.Expression("3")
    dot.stroke_width = 0.0
    dot.allow_overlap = True
    dot.ignore_placement = True
    return [dot]


def main(path, layer_name, kind, minx, miny, maxx, maxy, out):
    m = mapnik.Map(1920, 1080)
    m.background = mapnik.Color("white")
    style = mapnik.Style()
    rule = mapnik.Rule()
    for symbolizer in symbolizers(kind):
        rule.symbols.append(symbolizer)
    style.rules.append(rule)
    m.append_style("bench", style)
    layer = mapnik.Layer(layer_name)
    layer.datasource = mapnik.Ogr(file=path, layer=layer_name)
    layer.styles.append("bench")
    m.layers.append(layer)
    m.zoom_to_box(mapnik.Box2d(float(minx), float(miny), float(maxx), float(maxy)))
    image = mapnik.Image(1920, 1080)
    start = time.perf_counter()
    mapnik.render(m, image)
    seconds = time.perf_counter() - start
    image.save(out, "png")
    print("%.3f" % seconds)


if __name__ == "__main__":
    if len(sys.argv) != 9:
        sys.exit(__doc__)
    main(*sys.argv[1:])
