// What is behind a scene: sky, haze and ground, which melt into each other.
#pragma once

// Fills the picture of the current context, whose depth test, lighting and matrices are others then. `brightness` is 1
// by day.
void DrawSky(float brightness);
