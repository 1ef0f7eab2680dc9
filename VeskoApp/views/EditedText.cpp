#include "VeskoApp/views/EditedText.h"

#include "VeskoApp/notes/NoteEditor.h"

namespace vesko {

void EditedText::attach()
{
    if (auto* const editor = qobject_cast<NoteEditor*>(m_editor))
        editor->attach(*m_document->textDocument());
}

} // namespace vesko
