// The entities of a drawing as a table and as a document.
#pragma once

class AcDbDatabase;
class Output;

// Handle, type and layer of each entity, in the drawing's order, and how many there are.
void PrintEntities(const AcDbDatabase& drawing, Output& output);
void PrintEntitiesAsJson(const AcDbDatabase& drawing, Output& output);
