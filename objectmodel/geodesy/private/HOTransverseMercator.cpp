#include "HOTransverseMercator.h"

#include <cmath>

namespace HXObjects {

HOTransverseMercator::HOTransverseMercator(double semiMajorAxis, double inverseFlattening) {
    const double f = 1.0 / inverseFlattening;
    m_e = std::sqrt(f * (2.0 - f));
    const double n = f / (2.0 - f);
    const double n2 = n * n, n3 = n2 * n, n4 = n3 * n, n5 = n4 * n, n6 = n5 * n;
    m_rectifying = semiMajorAxis / (1.0 + n) * (1.0 + n2 / 4.0 + n4 / 64.0 + n6 / 256.0);
    m_alpha = {
        n / 2.0 - 2.0 * n2 / 3.0 + 5.0 * n3 / 16.0 + 41.0 * n4 / 180.0 - 127.0 * n5 / 288.0 +
            7891.0 * n6 / 37800.0,
        13.0 * n2 / 48.0 - 3.0 * n3 / 5.0 + 557.0 * n4 / 1440.0 + 281.0 * n5 / 630.0 -
            1983433.0 * n6 / 1935360.0,
        61.0 * n3 / 240.0 - 103.0 * n4 / 140.0 + 15061.0 * n5 / 26880.0 + 167603.0 * n6 / 181440.0,
        49561.0 * n4 / 161280.0 - 179.0 * n5 / 168.0 + 6601661.0 * n6 / 7257600.0,
        34729.0 * n5 / 80640.0 - 3418889.0 * n6 / 1995840.0,
        212378941.0 * n6 / 319334400.0,
    };
}

// tan of the conformal latitude, in the tau form that stays finite and accurate up to the poles.
double HOTransverseMercator::ConformalTan(double latitude) const {
    const double tau = std::tan(latitude);
    const double sigma = std::sinh(m_e * std::atanh(m_e * tau / std::hypot(1.0, tau)));
    return tau * std::hypot(1.0, sigma) - sigma * std::hypot(1.0, tau);
}

void HOTransverseMercator::Forward(double latitude, double dLongitude, double* northing,
                                   double* easting) const {
    const double tauPrime = ConformalTan(latitude);
    const double cosLon = std::cos(dLongitude);
    const double xiPrime = std::atan2(tauPrime, cosLon);
    const double etaPrime = std::asinh(std::sin(dLongitude) / std::hypot(tauPrime, cosLon));
    double xi = xiPrime;
    double eta = etaPrime;
    for (std::size_t j = 0; j < m_alpha.size(); ++j) {
        const double k = 2.0 * static_cast<double>(j + 1);
        xi += m_alpha[j] * std::sin(k * xiPrime) * std::cosh(k * etaPrime);
        eta += m_alpha[j] * std::cos(k * xiPrime) * std::sinh(k * etaPrime);
    }
    *northing = m_rectifying * xi;
    *easting = m_rectifying * eta;
}

}  // namespace HXObjects
