#pragma once
// Declares a data table's columns in one call: HOAddColumns<int, QString>({"count", "name"}).
// Header-only.
#include <QtTest>
#include <array>

template <typename... Types>
void HOAddColumns(const std::array<const char*, sizeof...(Types)>& names) {
    std::size_t i = 0;
    (QTest::addColumn<Types>(names[i++]), ...);
}
