#include "print/FormatiStampa.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace dv {

std::string FormatoMigliaia(double v, int decimali, bool zeroIniziale) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.*f", decimali, std::fabs(v));
    const std::string s = buf;
    const size_t punto = s.find('.');
    std::string intera = s.substr(0, punto);
    const std::string decimi = punto == std::string::npos ? "" : s.substr(punto);
    std::string out;
    if (intera == "0" && !zeroIniziale) intera.clear();
    for (size_t i = 0; i < intera.size(); ++i) {
        if (i > 0 && (intera.size() - i) % 3 == 0) out += ',';
        out += intera[i];
    }
    out += decimi;
    bool zero = true;
    for (char ch : s)
        if (ch >= '1' && ch <= '9') zero = false;
    if (v < 0 && !zero) out.insert(out.begin(), '-');
    return out;
}

std::string FormatoCifre(long long n, int cifre) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%0*lld", cifre + (n < 0 ? 1 : 0), n);
    return buf;
}

} // namespace dv
