#pragma once

#include <map>
#include <memory>
#include <typeindex>

#include "FormModel.h"

// The forms of a program, one instance of each form type, made at its first use and kept
// until the set goes. Whoever needs a form asks for it by its type, so no list of forms is
// kept by hand: a form's constructor takes the owner that the set was asked with.
class FormSet
{
public:
    template<class Form, class Owner> Form& get(Owner& owner)
    {
        std::unique_ptr<FormModel>& slot = m_forms[std::type_index(typeid(Form))];
        if (!slot)
            slot = std::make_unique<Form>(owner);
        return static_cast<Form&>(*slot);
    }

private:
    std::map<std::type_index, std::unique_ptr<FormModel>> m_forms;
};
