#pragma once

#include <QObject>

#include <type_traits>
#include <utility>

namespace vesko {

// Gives a field of an observable object its value; observers hear of changes only.
template <class Object, class T>
void assign(Object& object, T& field, std::type_identity_t<T> value, void (Object::*changed)())
{
    if (field == value)
        return;
    field = std::move(value);
    Q_EMIT(object.*changed)();
}

} // namespace vesko
