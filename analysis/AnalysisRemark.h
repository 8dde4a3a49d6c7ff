// What an analysis has to say beside its numbers.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/base/CString.h"

// One thing to know: its kind, and of the others what that kind names.
struct AnalysisRemark {
    // What there is to know.
    enum class Kind {
        NoWindows,       // no window on the layers that were asked for
        NoFaces,         // nothing casts a shadow; `subject` lists what the drawing holds instead, empty for nothing;
                         // `count` of that are flat outlines that a height would make bodies
        NoLayerToRaise,  // `subject` is a layer that a height was asked for and that the drawing does not have
        NothingToRaise,  // `subject` is a layer where a height found no visible closed outline without a thickness, but
                         // `count` open ones
        LayerMissing,    // `subject` is a layer that was asked for by name and that the drawing does not have
        LayerInvisible,  // `subject` is a layer of windows that is off or frozen: `count` entities were passed over
        NotAWindow,      // the entity `handle` on a layer of windows, or a part of it, is no vertical rectangle and
                         // no line of a plan; of an INSERT of the block `subject` these are `count` entities in it,
                         // copy by copy, or itself
        TooManyInBlock,  // the INSERT `handle` would bring the windows beyond `count`, and has none
        LinesWithoutHeight,  // `count` lines on layers of windows would be windows if their height were told
        NothingRepeated,     // storeys were asked for, and no window is drawn as a line
        TinyWindows,         // none of the `count` windows is longer on any side than `amount` millimetres
        LinesInRows,         // `count` windows are drawn as lines that lie along another one, less than a wall's depth
                             // from it; the first of them is `handle`
        SameNames,           // `count` windows have names that others have, too, `subject` the first of them, and are
                             // added up in the same flats
        Faulty,    // `count` entities of the drawing could not be read; `subject` lists the first of these, and
                   // of the INSERTs that show some, by their handles
        TooLarge,  // the INSERT `handle` would bring the scene beyond kMostSceneFaces and casts no shadow
        External,  // the INSERT `handle` shows the external reference `subject`, whose content is not in the drawing
        ProposedMissing,    // `subject` is a layer of the project that the drawing does not have
        ProposedInvisible,  // `subject` is a layer of the project that is off or frozen: it casts no shadow
        ProposedEmpty,      // `subject` is a layer of the project on which nothing casts a shadow
        ProposedIsWindows,  // `subject` is a layer of the project and one of windows, which cast no shadow
        AllProposed,        // all `count` windows lie on the project
        WithoutFaces,      // `count` visible bodies are of kinds that are not read, and cast no shadow: `subject` lists
                           // them
        SpanUnusable,      // the span is reversed, empty, or none within a day: no minutes
        StepUnusable,      // the step is no time: no minutes
        SunBelowHorizon,   // the sun never stands above `amount` degrees of altitude in the span
        SunNeverSets,      // the sun stays up all day and night
        LeftOutByScope,    // `count` entities stand before some window and were too far away from it
        LeftOutByAltitude  // hours below `amount` degrees of altitude were left out
    };
    Kind kind = Kind::NoWindows;  // which of the others hold something
    CString subject;              // a name as the drawing has it, or a list for people
    std::uint64_t handle = 0;     // of an entity; 0 for none
    std::size_t count = 0;        // of what the kind says
    double amount = 0.0;          // in the unit that the kind says
};
