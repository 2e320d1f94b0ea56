#pragma once

class FormModel;
class MLUtil;

// Sets each entry of the form's form-text table, in its order, to the text of the form
// table in the applied language. The result is not tested: a path without a row leaves its
// control blank, as the table says. A path that reaches no control of the form is a fault
// of the program and ends it.
void ApplyFormText(const MLUtil& ml, FormModel& form);
