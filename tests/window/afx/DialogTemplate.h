// DialogTemplate.h - dialog templates made in memory
#pragma once

#include <afxwin.h>

#include <cstring>
#include <string_view>
#include <vector>

/// Collects the words of a template; places are in dialog units.
class DialogTemplate
{
public:
    explicit DialogTemplate(std::string_view title, DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU)
    {
        DLGTEMPLATE head = {};
        head.style = style;
        head.cx = 160;
        head.cy = 80;
        Append(&head, sizeof head);
        m_words.push_back(0); // no menu
        m_words.push_back(0); // the system's dialog class
        Text(title);
    }

    /// An empty dialog by an extended template.
    /// @param x, y  dialog units
    static DialogTemplate Extended(DWORD style, WORD x, WORD y)
    {
        DialogTemplate made;
        constexpr WORD kVersion = 1;
        constexpr WORD kSignature = 0xFFFF;
        made.m_words = {kVersion, kSignature, 0, 0, 0, 0, LOWORD(style), HIWORD(style), 0, x, y, 160, 80, 0, 0, 0};
        return made;
    }

    DialogTemplate& Item(std::string_view cls, std::string_view text, WORD id, DWORD style, short x, short y,
                         short cx = 50, short cy = 14)
    {
        if (m_words.size() % 2 != 0)
        {
            m_words.push_back(0); // items begin at whole double words
        }
        DLGITEMTEMPLATE item = {};
        item.style = style | WS_CHILD | WS_VISIBLE;
        item.x = x;
        item.y = y;
        item.cx = cx;
        item.cy = cy;
        item.id = id;
        Append(&item, sizeof item);
        Text(cls);
        Text(text);
        m_words.push_back(0); // no creation data
        ++reinterpret_cast<DLGTEMPLATE*>(m_words.data())->cdit;
        return *this;
    }

    [[nodiscard]] LPCDLGTEMPLATE Get() const { return reinterpret_cast<LPCDLGTEMPLATE>(m_words.data()); }
    [[nodiscard]] size_t Bytes() const { return m_words.size() * sizeof(WORD); }

private:
    DialogTemplate() = default;

    void Append(const void* data, size_t bytes)
    {
        const size_t before = m_words.size();
        m_words.resize(before + bytes / sizeof(WORD));
        std::memcpy(&m_words[before], data, bytes);
    }
    void Text(std::string_view text)
    {
        m_words.insert(m_words.end(), text.begin(), text.end());
        m_words.push_back(0);
    }

    std::vector<WORD> m_words;
};
