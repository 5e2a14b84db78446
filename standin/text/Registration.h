#pragma once
// Each registers the classes of its file; startup/Startup.cpp has the order.

namespace standin {

void registerFonts();
void registerParagraphStyles();
void registerStringDrawing();

}  // namespace standin
