// Opening objects of a drawing, and names of table records.
#include "platform/host/AcDbObject.h"

#include <gtest/gtest.h>

#include "platform/host/AcDbSymbolTableRecord.h"
#include "support/DrawingForTests.h"

namespace {

// An object that is open as long as the test needs it.
class Opened {
public:
    explicit Opened(AcDbObjectId id) { m_status = acdbOpenAcDbObject(m_object, id, AcDb::kForRead); }
    ~Opened() {
        if (m_object)
            m_object->close();
    }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    AcDbObject* Object() const { return m_object; }
    Acad::ErrorStatus Status() const { return m_status; }

private:
    AcDbObject* m_object = nullptr;
    Acad::ErrorStatus m_status;
};

}  // namespace

TEST(AcDbObject, KnowsItsIdAndHandle) {
    const DrawingForTests drawing(ChineseDrawing("0\nLINE\n5\nA1\n0\nLINE\n8\n0\n"));
    const Opened line(drawing.Id(0xA1));
    ASSERT_EQ(line.Status(), Acad::eOk);
    EXPECT_EQ(line.Object()->objectId(), drawing.Id(0xA1));
    EXPECT_EQ(line.Object()->handle(), 0xA1U);
}

TEST(AcDbObject, HasHandle0WithoutOne) {
    DrawingForTests drawing(ChineseDrawing("0\nLINE\n8\n0\n"));
    const Opened line(drawing.Database().GetEntityId(0));
    ASSERT_EQ(line.Status(), Acad::eOk);
    EXPECT_EQ(line.Object()->handle(), 0U);
}

TEST(AcDbObject, IsOpenUntilItIsClosed) {
    const DrawingForTests drawing(ChineseDrawing("0\nLINE\n5\nA1\n"));
    const int before = AcDbObject::OpenCount();
    AcDbObject* line = nullptr;
    AcDbObject* layer = nullptr;
    ASSERT_EQ(acdbOpenAcDbObject(line, drawing.Id(0xA1), AcDb::kForRead), Acad::eOk);
    ASSERT_EQ(acdbOpenAcDbObject(layer, drawing.Id(0x11), AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(AcDbObject::OpenCount(), before + 2);
    EXPECT_EQ(line->close(), Acad::eOk);
    EXPECT_EQ(layer->close(), Acad::eOk);
    EXPECT_EQ(AcDbObject::OpenCount(), before);
}

TEST(AcDbObject, IsNotOpenedForAnythingButReading) {
    const DrawingForTests drawing(ChineseDrawing("0\nLINE\n5\nA1\n"));
    for (const AcDb::OpenMode mode : {AcDb::kForWrite, AcDb::kForNotify}) {
        AcDbObject* object = nullptr;
        EXPECT_EQ(acdbOpenAcDbObject(object, drawing.Id(0xA1), mode), Acad::eInvalidInput);
        EXPECT_EQ(object, nullptr);
    }
}

TEST(AcDbObject, IsNotOpenedWhereThereIsNone) {
    const DrawingForTests drawing(ChineseDrawing("0\nLINE\n5\nA1\n"));
    const int before = AcDbObject::OpenCount();
    EXPECT_EQ(Opened(AcDbObjectId()).Status(), Acad::eInvalidInput);
    const Opened unknown(AcDbObjectId::FromOldId(drawing.Id(0xA1).asOldId() + 1000000));
    EXPECT_EQ(unknown.Status(), Acad::eKeyNotFound);
    EXPECT_EQ(unknown.Object(), nullptr);
    acdbSetCurDwg(nullptr);
    EXPECT_EQ(Opened(drawing.Id(0xA1)).Status(), Acad::eKeyNotFound);
    EXPECT_EQ(AcDbObject::OpenCount(), before);
}

TEST(AcDbObject, SurvivesItsDrawing) {
    AcDbObject* layer = nullptr;
    {
        const DrawingForTests drawing(ChineseDrawing(""));
        ASSERT_EQ(acdbOpenAcDbObject(layer, drawing.Id(0x11), AcDb::kForRead), Acad::eOk);
    }
    const wchar_t* name = L"";
    EXPECT_EQ(layer->handle(), 0U);
    EXPECT_EQ(AcDbSymbolTableRecord::cast(layer)->getName(name), Acad::eKeyNotFound);
    EXPECT_EQ(name, nullptr);
    layer->close();
}

TEST(AcDbSymbolTableRecord, HasItsName) {
    const DrawingForTests drawing(ChineseDrawing(""));
    const Opened layer(drawing.Id(0x11));
    const AcDbSymbolTableRecord* record = AcDbSymbolTableRecord::cast(layer.Object());
    ASSERT_NE(record, nullptr);
    const wchar_t* name = nullptr;
    EXPECT_EQ(record->getName(name), Acad::eOk);
    EXPECT_STREQ(name, L"墙");
}

TEST(AcDbSymbolTableRecord, IsNoEntityAndNoTable) {
    const DrawingForTests drawing(ChineseDrawing("0\nINSERT\n5\nA1\n2\nname of a block\n"));
    EXPECT_EQ(AcDbSymbolTableRecord::cast(Opened(drawing.Id(0xA1)).Object()), nullptr);
    EXPECT_EQ(AcDbSymbolTableRecord::cast(Opened(drawing.Id(0x2)).Object()), nullptr);
    EXPECT_EQ(AcDbSymbolTableRecord::cast(nullptr), nullptr);
}

TEST(AcDbSymbolTableRecord, MayHaveNoName) {
    const DrawingForTests drawing(
        "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n0\nLAYER\n5\n11\n70\n0\n0\nENDTAB\n0\nENDSEC\n0\nEOF\n");
    const Opened layer(drawing.Id(0x11));
    const AcDbSymbolTableRecord* record = AcDbSymbolTableRecord::cast(layer.Object());
    ASSERT_NE(record, nullptr);
    const wchar_t* name = L"";
    EXPECT_EQ(record->getName(name), Acad::eKeyNotFound);
    EXPECT_EQ(name, nullptr);
}
