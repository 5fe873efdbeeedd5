#pragma once

#include <QString>

class TCustomTreeView;
class TTreeNode;

// A tree as text, as the command line prints it.
namespace TreeText {

// A node a line, two blanks of indent a level, the caption as it stands in the window.
QString Plain(const TCustomTreeView& tree);
// Nested {"kind","caption","children"}: the one top-level node, or a list of them.
QString Json(const TCustomTreeView& tree);

}
