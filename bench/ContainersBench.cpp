// The containers beside their peers of the standard library: appending, walking with and without real work, sorting,
// and editing at the cursor. Each pair runs in one process on equal contents; Peer is the standard one.
#if defined(__GNUC__) && !defined(__clang__)
// A loop of five instructions runs at half its speed where it lies badly across fetch blocks; none shall be judged by
// the place that the linker gave it.
#pragma GCC optimize("align-loops=64")
#endif
#include <benchmark/benchmark.h>

#include <algorithm>
#include <list>
#include <random>
#include <vector>

#include "containers/QcDList.h"
#include "containers/QcDynArray.h"
#include "containers/QcList.h"

namespace {

// A plane a x + b y + c z + d = 0, as the faces and light prisms of an analysis hold them.
struct Side {
    double a = 0, b = 0, c = 0, d = 0;
};

constexpr long kAppends = 1000000;
constexpr long kWalk = 100000;
constexpr long kSum = 20000;
constexpr long kSort = 200000;
constexpr long kEdit = 10000;

Side RandomSide(std::mt19937& random) {
    std::uniform_real_distribution<double> number(-1.0, 1.0);
    return Side{number(random), number(random), number(random), number(random)};
}

// Which side of the plane a point lies on, with the tolerance that the module's geometry uses.
int SideOf(const Side& plane, double x, double y, double z) {
    const double s = plane.a * x + plane.b * y + plane.c * z + plane.d;
    return s > 1e-12 ? 1 : s < -1e-12 ? -1 : 0;
}

template <class Container>
void FillSides(Container& to) {
    std::mt19937 random(7);
    for (long i = 0; i < kWalk; ++i)
        if constexpr (requires { to.Append(Side()); })
            to.Append(RandomSide(random));
        else
            to.push_back(RandomSide(random));
}

template <class Container>
void FillInts(Container& to, long n, unsigned range) {
    std::mt19937 random(11);
    for (long i = 0; i < n; ++i) {
        const int x = static_cast<int>(random() % range);
        if constexpr (requires { to.Append(x); })
            to.Append(x);
        else
            to.push_back(x);
    }
}

void AppendPeer(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<int> v;
        for (int i = 0; i < kAppends; ++i)
            v.push_back(i);
        benchmark::DoNotOptimize(v.data());
    }
}
void AppendQcDynArray(benchmark::State& state) {
    for (auto _ : state) {
        QcDynArray<int> a;
        for (int i = 0; i < kAppends; ++i)
            a.Append(i);
        benchmark::DoNotOptimize(a.GetFirst());
    }
}

// The four ways to walk, with a visitor that sees each element.
template <class Container, class Visit>
void WalkByRange(Container& all, Visit visit) {
    for (auto& x : all)
        visit(x);
}
template <class Container, class Visit>
void WalkByIndex(Container& all, Visit visit) {
    const long n = all.GetLength();
    for (long i = 0; i < n; ++i)
        visit(all[i]);
}
template <class Container, class Visit>
void WalkByNext(Container& all, Visit visit) {
    for (auto* p = all.GetFirst(); p != nullptr; p = all.GetNext(p))
        visit(*p);
}
template <class Container, class Visit>
void WalkByCursor(Container& all, Visit visit) {
    for (all.MoveToFirst(); !all.IsOut(); all.MoveToNext())
        visit(all.GetCurData());
}

enum class Way { kRange, kIndex, kNext, kCursor };

template <Way way, class Container, class Visit>
void Walk(Container& all, Visit visit) {
    if constexpr (way == Way::kRange)
        WalkByRange(all, visit);
    else if constexpr (way == Way::kIndex)
        WalkByIndex(all, visit);
    else if constexpr (way == Way::kNext)
        WalkByNext(all, visit);
    else
        WalkByCursor(all, visit);
}

// The lists' nodes are made once, before any benchmark runs: each list's one after the other, in memory that no other
// list has left in pieces.
template <class Container>
Container& Sides() {
    static Container& all = *[] {
        auto* const made = new Container;
        FillSides(*made);
        return made;
    }();
    return all;
}
template <class Container>
Container& Ints() {
    static Container& all = *[] {
        auto* const made = new Container;
        FillInts(*made, kSum, 1000);
        return made;
    }();
    return all;
}
template <class Container, Way way>
void WalkSides(benchmark::State& state) {
    Container& all = Sides<Container>();
    double x = 0.25;
    for (auto _ : state) {
        benchmark::DoNotOptimize(x);
        int upward = 0;
        Walk<way>(all, [&upward, x](const Side& plane) { upward += SideOf(plane, x, 0.5, -0.25) > 0 ? 1 : 0; });
        benchmark::DoNotOptimize(upward);
        benchmark::ClobberMemory();
    }
}

template <class Container, Way way>
void WalkInts(benchmark::State& state) {
    Container& all = Ints<Container>();
    for (auto _ : state) {
        int sum = 0;
        Walk<way>(all, [&sum](int x) { sum += x; });
        benchmark::DoNotOptimize(sum);
        benchmark::ClobberMemory();
    }
}

template <class Container>
void SortInts(benchmark::State& state) {
    Container shuffled;
    FillInts(shuffled, kSort, 1000000);
    for (auto _ : state) {
        state.PauseTiming();
        Container all(shuffled);
        state.ResumeTiming();
        if constexpr (requires { all.Sort(true); })
            all.Sort(true);
        else if constexpr (requires { all.sort(); })
            all.sort();
        else
            std::stable_sort(all.begin(), all.end());
        benchmark::DoNotOptimize(&all);
        benchmark::ClobberMemory();
    }
}

// Inserts at a place in the middle and takes the new elements out again.
void EditPeer(benchmark::State& state) {
    std::list<int> all(static_cast<std::size_t>(state.range(0)), 1);
    auto it = std::next(all.begin(), state.range(0) / 2);
    for (auto _ : state) {
        for (long i = 0; i < kEdit; ++i) {
            it = all.insert(std::next(it), 2);
            it = std::prev(all.erase(it));
        }
    }
}
template <class List>
void EditQc(benchmark::State& state) {
    List all(state.range(0));
    all.MoveTo(state.range(0) / 2);
    for (auto _ : state) {
        for (long i = 0; i < kEdit; ++i) {
            all.InsertAfterCur(2);
            all.DelCur();
        }
    }
}
// Inserts many before the cursor, then removes them one after the other.
template <class List>
void EditManyQc(benchmark::State& state) {
    List all(state.range(0));
    all.MoveTo(state.range(0) / 2);
    for (auto _ : state) {
        for (long i = 0; i < kEdit; ++i)
            all.InsertCur(2);
        for (long i = 0; i < kEdit; ++i)
            all.DelCur();
    }
}
void EditManyPeer(benchmark::State& state) {
    std::list<int> all(static_cast<std::size_t>(state.range(0)), 1);
    auto it = std::next(all.begin(), state.range(0) / 2);
    for (auto _ : state) {
        for (long i = 0; i < kEdit; ++i)
            it = all.insert(it, 2);
        for (long i = 0; i < kEdit; ++i)
            it = all.erase(it);
    }
}

BENCHMARK(AppendPeer)->Unit(benchmark::kMicrosecond);
BENCHMARK(AppendQcDynArray)->Unit(benchmark::kMicrosecond);

BENCHMARK(WalkSides<std::vector<Side>, Way::kRange>)->Name("WalkSides/vector/Peer");
BENCHMARK(WalkSides<QcDynArray<Side>, Way::kIndex>)->Name("WalkSides/QcDynArray/Index");
BENCHMARK(WalkSides<QcDynArray<Side>, Way::kNext>)->Name("WalkSides/QcDynArray/Next");
BENCHMARK(WalkSides<QcDynArray<Side>, Way::kCursor>)->Name("WalkSides/QcDynArray/Cursor");
BENCHMARK(WalkSides<std::list<Side>, Way::kRange>)->Name("WalkSides/list/Peer");
BENCHMARK(WalkSides<QcList<Side>, Way::kNext>)->Name("WalkSides/QcList/Next");
BENCHMARK(WalkSides<QcList<Side>, Way::kCursor>)->Name("WalkSides/QcList/Cursor");
BENCHMARK(WalkSides<QcDList<Side>, Way::kNext>)->Name("WalkSides/QcDList/Next");
BENCHMARK(WalkSides<QcDList<Side>, Way::kCursor>)->Name("WalkSides/QcDList/Cursor");

BENCHMARK(WalkInts<std::vector<int>, Way::kRange>)->Name("WalkInts/vector/Peer");
BENCHMARK(WalkInts<QcDynArray<int>, Way::kIndex>)->Name("WalkInts/QcDynArray/Index");
BENCHMARK(WalkInts<QcDynArray<int>, Way::kNext>)->Name("WalkInts/QcDynArray/Next");
BENCHMARK(WalkInts<QcDynArray<int>, Way::kCursor>)->Name("WalkInts/QcDynArray/Cursor");
BENCHMARK(WalkInts<std::list<int>, Way::kRange>)->Name("WalkInts/list/Peer");
BENCHMARK(WalkInts<QcList<int>, Way::kNext>)->Name("WalkInts/QcList/Next");
BENCHMARK(WalkInts<QcList<int>, Way::kCursor>)->Name("WalkInts/QcList/Cursor");
BENCHMARK(WalkInts<QcDList<int>, Way::kNext>)->Name("WalkInts/QcDList/Next");
BENCHMARK(WalkInts<QcDList<int>, Way::kCursor>)->Name("WalkInts/QcDList/Cursor");

BENCHMARK(SortInts<std::vector<int>>)->Name("Sort/vector/Peer")->Unit(benchmark::kMicrosecond);
BENCHMARK(SortInts<QcDynArray<int>>)->Name("Sort/QcDynArray")->Unit(benchmark::kMicrosecond);
BENCHMARK(SortInts<std::list<int>>)->Name("Sort/list/Peer")->Unit(benchmark::kMicrosecond);
BENCHMARK(SortInts<QcList<int>>)->Name("Sort/QcList")->Unit(benchmark::kMicrosecond);
BENCHMARK(SortInts<QcDList<int>>)->Name("Sort/QcDList")->Unit(benchmark::kMicrosecond);

// Constant time: the same for a list of a hundred and of a hundred thousand elements.
BENCHMARK(EditPeer)->Arg(100)->Arg(100000);
BENCHMARK(EditQc<QcDList<int>>)->Name("Edit/QcDList")->Arg(100)->Arg(100000);
BENCHMARK(EditQc<QcList<int>>)->Name("Edit/QcList")->Arg(100)->Arg(100000);
BENCHMARK(EditManyPeer)->Arg(100)->Arg(100000);
BENCHMARK(EditManyQc<QcDList<int>>)->Name("EditMany/QcDList")->Arg(100)->Arg(100000);

}  // namespace

int main(int argc, char** argv) {
    Sides<std::list<Side>>();
    Sides<QcList<Side>>();
    Sides<QcDList<Side>>();
    Ints<std::list<int>>();
    Ints<QcList<int>>();
    Ints<QcDList<int>>();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
