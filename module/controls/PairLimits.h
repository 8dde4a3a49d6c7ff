// Between which values a greater unit and the next smaller one lie: degrees and minutes, hours and minutes.
#pragma once

struct PairLimits {
    int leastGreater;
    int leastSmaller;
    int mostGreater;
    int mostSmaller;

    // Whether a greater unit can be typed beside this smaller one.
    bool TakesGreater(int greater, int smaller) const {
        if (greater < leastGreater || greater > mostGreater)
            return false;
        if (smaller < leastSmaller && greater == leastGreater)
            return false;
        return smaller <= mostSmaller || greater != mostGreater;
    }

    // Whether a smaller unit can be typed beside this greater one. At the upper end it is the maximum of the smaller
    // unit that the greater one is held against, not its own: owners that ask this test rely on its answers.
    bool TakesSmaller(int greater, int smaller) const {
        if (smaller >= 60)
            return false;
        if (greater == leastGreater && smaller < leastSmaller)
            return false;
        return greater != mostSmaller || smaller <= mostSmaller;
    }
};
