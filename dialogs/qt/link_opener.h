// A link of the About window handed to the desktop's opener.
#pragma once

#include <QString>

namespace nautrix {

// Opens a mail or web address with the user's program for it and returns at
// once. A caption without a scheme is read as a web address. Nothing reaches
// the terminal: neither Qt's word that no opener was found nor what the
// opener and the program it starts say there.
void OpenLink(const QString& target);

}  // namespace nautrix
