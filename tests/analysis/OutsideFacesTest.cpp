// On which side of its faces a body has its outside, however the faces are oriented.
#include "analysis/OutsideFaces.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <random>

#include "analysis/OccluderSet.h"

namespace {

using Outside = Occluder::Outside;

void Add(OccluderSet& set, std::initializer_list<Vector3> corners, std::uint32_t entity = 0) {
    Occluder face;
    face.count = static_cast<int>(corners.size());
    face.entity = entity;
    std::copy(corners.begin(), corners.end(), face.corners);
    set.faces.push_back(face);
}

void AddBox(OccluderSet& set, const Vector3& a, const Vector3& b) {
    Add(set, {{a.x, a.y, a.z}, {b.x, a.y, a.z}, {b.x, b.y, a.z}, {a.x, b.y, a.z}});
    Add(set, {{a.x, a.y, b.z}, {b.x, a.y, b.z}, {b.x, b.y, b.z}, {a.x, b.y, b.z}});
    Add(set, {{a.x, a.y, a.z}, {b.x, a.y, a.z}, {b.x, a.y, b.z}, {a.x, a.y, b.z}});
    Add(set, {{a.x, b.y, a.z}, {b.x, b.y, a.z}, {b.x, b.y, b.z}, {a.x, b.y, b.z}});
    Add(set, {{a.x, a.y, a.z}, {a.x, b.y, a.z}, {a.x, b.y, b.z}, {a.x, a.y, b.z}});
    Add(set, {{b.x, a.y, a.z}, {b.x, b.y, a.z}, {b.x, b.y, b.z}, {b.x, a.y, b.z}});
}

// An L of two wings, 10 high: its faces divided as programs divide them.
void AddAngle(OccluderSet& set) {
    const double x[] = {0, 30, 30, 10, 10, 0};
    const double y[] = {0, 0, 10, 10, 30, 30};
    for (int i = 0; i < 6; ++i) {
        const int k = (i + 1) % 6;
        Add(set, {{x[i], y[i], 0}, {x[k], y[k], 0}, {x[k], y[k], 10}, {x[i], y[i], 10}});
    }
    for (const double z : {0.0, 10.0}) {
        Add(set, {{0, 0, z}, {30, 0, z}, {30, 10, z}, {10, 10, z}});
        Add(set, {{0, 0, z}, {10, 10, z}, {10, 30, z}, {0, 30, z}});
    }
}

// Each face turned round at random.
void Shuffle(OccluderSet& set, unsigned seed) {
    std::mt19937 random(seed);
    for (Occluder& face : set.faces)
        if (random() % 2 == 0)
            std::reverse(face.corners, face.corners + face.count);
}

// The face's normal where outside is known to be.
Vector3 OutwardOf(const Occluder& face) {
    return face.outside == Outside::Before ? face.Normal() : -face.Normal();
}

}  // namespace

TEST(OutsideFaces, OfABoxLookAwayFromItsMiddle) {
    for (unsigned seed = 0; seed < 8; ++seed) {
        OccluderSet set;
        AddBox(set, {0, 0, 0}, {10, 20, 30});
        Shuffle(set, seed);
        FindClosedBodies(set);
        for (const Occluder& face : set.faces) {
            ASSERT_NE(face.outside, Outside::Unknown);
            EXPECT_GT(Dot(OutwardOf(face), face.Middle() - Vector3{5, 10, 15}), 0.0);
        }
    }
}

TEST(OutsideFaces, OfAnAngleAreToldInItsCornerToo) {
    for (unsigned seed = 0; seed < 8; ++seed) {
        OccluderSet set;
        AddAngle(set);
        Shuffle(set, seed);
        FindClosedBodies(set);
        int known = 0;
        for (const Occluder& face : set.faces) {
            ASSERT_NE(face.outside, Outside::Unknown);
            const Vector3 outward = OutwardOf(face);
            const Vector3 middle = face.Middle();
            if (middle.x == 10.0 && outward.z == 0.0) {
                EXPECT_GT(outward.x, 0.0) << "the wall in the corner";
                ++known;
            }
            if (middle.z != 5.0) {
                EXPECT_EQ(outward.z > 0.0, middle.z == 10.0);
                ++known;
            }
        }
        EXPECT_EQ(known, 5);
    }
}

// A body of many faces that is convex, and one around a hole: asked, not measured.
TEST(OutsideFaces, OfAHollowLookIntoTheHole) {
    OccluderSet set;
    AddBox(set, {0, 0, 0}, {100, 100, 100});
    AddBox(set, {40, 40, 40}, {60, 60, 60});
    // One body, as if a passage joined the two.
    for (Occluder& face : set.faces)
        face.body = 0;
    set.bodyCount = 1;
    TellOutsides(set);
    for (std::size_t i = 0; i < set.faces.size(); ++i) {
        ASSERT_NE(set.faces[i].outside, Outside::Unknown);
        const double side = Dot(OutwardOf(set.faces[i]), set.faces[i].Middle() - Vector3{50, 50, 50});
        EXPECT_EQ(side > 0.0, i < 6) << i;
    }
}

TEST(OutsideFaces, AreUnknownWhereABodyIsSeveralEntities) {
    OccluderSet set;
    AddBox(set, {0, 0, 0}, {10, 20, 30});
    set.faces[3].entity = 1;
    FindClosedBodies(set);
    ASSERT_EQ(set.bodyCount, 1);
    for (const Occluder& face : set.faces)
        EXPECT_EQ(face.outside, Outside::Unknown);
}

// A pane that is drawn twice over the corner of an angle: it stops rays that go through no border of the body.
TEST(OutsideFaces, AreUnknownOfWhatIsDrawnTwice) {
    OccluderSet set;
    AddAngle(set);
    for (int i = 0; i < 2; ++i)
        Add(set, {{30, 10, 0}, {10, 30, 0}, {10, 30, 10}, {30, 10, 10}});
    FindClosedBodies(set);
    ASSERT_EQ(set.bodyCount, 1);
    for (std::size_t i = 0; i < set.faces.size(); ++i)
        EXPECT_EQ(set.faces[i].outside == Outside::Unknown, i >= 10) << i;
}
