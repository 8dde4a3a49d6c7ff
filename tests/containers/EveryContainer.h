// The fixture of tests that run on each kind of array and list.
#pragma once

#include "TestElements.h"
#include "containers/QcDList.h"
#include "containers/QcDynArray.h"
#include "containers/QcList.h"
#include "containers/QcXList.h"

template <class C>
class EveryContainer : public testing::Test {
protected:
    static C Make(const Ints& from) {
        C made;
        Fill(made, from);
        return made;
    }
};

using ContainerKinds = testing::Types<QcDynArray<int>, QcList<int>, QcDList<int>, QcXList<int>>;
