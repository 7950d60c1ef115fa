#pragma once

#include "x11/Types.h"

#include <QString>

#include <utility>

// Keys of a picture, which owns them. Where several fit it is the first in the order of their XKB
// names; null where none does. Picture is KbdGeometry and the keys are of type KbdKey; as templates
// these functions need neither, which keeps the harness below them.

template <typename Picture>
using PictureKey = typename decltype(std::declval<Picture>().keyItems())::value_type;

template <typename Picture, typename Condition>
PictureKey<Picture> keyThat(const Picture& picture, const Condition& fits)
{
    const auto keys = picture.keyItems();
    for (auto* key : keys) {
        if (fits(*key))
            return key;
    }
    return nullptr;
}

// By its XKB name, such as "AC01".
template <typename Picture>
PictureKey<Picture> keyNamed(const Picture& picture, const QString& name)
{
    return keyThat(picture, [&](const auto& key) { return key.name() == name; });
}

template <typename Picture>
PictureKey<Picture> keyWithCode(const Picture& picture, KeyCode keycode)
{
    return keyThat(picture, [&](const auto& key) { return key.x11Keycode() == keycode; });
}

// The key that shows the keysym now.
template <typename Picture>
PictureKey<Picture> keyWithKeysym(const Picture& picture, KeySym keysym)
{
    return keyThat(picture, [&](const auto& key) { return key.activeKeysym() == keysym; });
}

// By KeySymbols::modifierName(), such as "LevelThree".
template <typename Picture>
PictureKey<Picture> modifierKey(const Picture& picture, const QString& modifier)
{
    return keyThat(picture, [&](const auto& key) {
        return key.symbols().keyType() != 0 && key.symbols().modifierName() == modifier;
    });
}
