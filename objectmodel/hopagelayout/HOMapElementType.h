#pragma once
namespace HXObjects {

// Kinds of page-layout element; 0 is a data frame (a map on the page).
enum HOMapElementType {
    HOElementDataFrame = 0,
    HOElementText = 1,
    HOElementGraphic = 2,
    HOElementLegend = 3,
    HOElementScaleBar = 4,
    HOElementNorthArrow = 5,
    HOElementPicture = 6,
};

}  // namespace HXObjects
