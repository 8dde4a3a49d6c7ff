// Drawings with blocks.
#pragma once

#include "SceneForTests.h"

inline std::string BlockText(const std::string& name, const std::string& entities, const std::string& groups = {}) {
    return Entity("BLOCK", "2=" + name + " " + groups) + entities + Entity("ENDBLK", "");
}

inline std::string BlockDrawing(const std::string& blocks, const std::string& entities,
                                const std::string& layers = {}) {
    return DrawingOf(Section("HEADER", "9\n$ACADVER\n1\nAC1027\n9\n$INSUNITS\n70\n4\n") +
                     Section("TABLES", "0\nTABLE\n2\nLAYER\n70\n1\n" + layers + "0\nENDTAB\n") +
                     Section("BLOCKS", blocks) + Section("ENTITIES", entities));
}

inline Scene BlockScene(const std::string& blocks, const std::string& entities, const std::string& layers = {},
                        std::size_t mostFaces = kMostSceneFaces) {
    const OpenDrawing drawing(BlockDrawing(blocks, entities, layers));
    return BuildScene(drawing.database, {mostFaces, {}});
}

// A triangle that is the same after no turn or mirror: (0, 0, 0), (4, 0, 0), (0, 2, 1).
inline std::string Scalene(const std::string& groups = {}) {
    return Entity("3DFACE", groups + " " + At(0, 0, 0) + At(4, 0, 0, 11) + At(0, 2, 1, 12));
}

inline std::string Insert(const std::string& groups) {
    return Entity("INSERT", groups + (groups.find("10=") == std::string::npos ? " 10=0 20=0" : ""));
}
