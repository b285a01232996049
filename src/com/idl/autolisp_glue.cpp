#include <string>
#include <string_view>

#include "com/idl/texts.h"
#include "com/published_ids.h"

namespace velmar::com {
namespace {

constexpr std::string_view head =
    R"(;;; Velmar for AutoLISP. Load this file with APPLOAD, or from acaddoc.lsp.
;;;
;;; Functions: (velmar:RUP 11.0 5.0) calls the method RUP. nil leaves an optional argument out. A point is a list of
;;; three numbers. The result is what the method returns, nil where it returns nothing. After an error the message is
;;; shown and the result is nil.
;;; Commands: VmRUP asks for the arguments, calls the method and shows its result.
(vl-load-com)

;; The object all calls go to, made when the first one needs it.
(defun velmar:object ( / made)
  (if (null *velmar-object*)
    (progn
      (setq made (vl-catch-all-apply 'vlax-create-object (list "@program_id")))
      (if (or (null made) (vl-catch-all-error-p made))
        (princ "\nVelmar: the class @program_id cannot be created. Is Velmar registered, and in the bitness of this program?")
        (setq *velmar-object* made))))
  *velmar-object*)

;; Lets the object go, so that the library can be replaced.
(defun velmar:release ()
  (if *velmar-object* (vlax-release-object *velmar-object*))
  (setq *velmar-object* nil)
  (princ))

(defun velmar:point-p (value)
  (and (listp value) (= (length value) 3) (vl-every 'numberp value)))

;; An argument as automation takes it; one left out as the default of its type.
(defun velmar:argument (value kind)
  (cond
    ((and (null value) (= kind "text")) "")
    ((and (null value) (= kind "boolean")) :vlax-false)
    ((null value) 0)
    ((eq value T) :vlax-true)
    ((velmar:point-p value) (vlax-3d-point value))
    ((and (= kind "number") (= (type value) 'INT)) (float value))
    (value)))

;; A result as AutoLISP takes it: lists for arrays, T and nil for truth.
(defun velmar:result (value)
  (cond
    ((= (type value) 'VARIANT) (velmar:result (vlax-variant-value value)))
    ((= (type value) 'SAFEARRAY) (mapcar 'velmar:result (vlax-safearray->list value)))
    ((eq value :vlax-true) T)
    ((eq value :vlax-false) nil)
    (value)))

;; Arguments at the end that are nil are left out.
(defun velmar:given (values kinds / given)
  (setq values (reverse values) kinds (reverse kinds))
  (while (and values (null (car values)))
    (setq values (cdr values) kinds (cdr kinds)))
  (setq given (mapcar 'velmar:argument values kinds))
  (reverse given))

(defun velmar:call (name values kinds / object result)
  (if (setq object (velmar:object))
    (progn
      (setq result (vl-catch-all-apply 'vlax-invoke-method
                                       (append (list object name) (velmar:given values kinds))))
      (if (vl-catch-all-error-p result)
        (progn (princ (strcat "\nVelmar: " name ": " (vl-catch-all-error-message result))) nil)
        (velmar:result result)))))

;; The handle of a picked entity, nil where nothing was picked.
(defun velmar:pick (name / picked)
  (setq picked (vl-catch-all-apply 'entsel (list (strcat "\nPick " name ": "))))
  (if (and (listp picked) (= (type (car picked)) 'ENAME))
    (cdr (assoc 5 (entget (car picked))))))

(defun velmar:number-or-text (answer / number)
  (if (setq number (distof answer 2)) number answer))

(defun velmar:ask (name kind / answer)
  (setq answer
    (vl-catch-all-apply
      '(lambda ()
         (cond
           ((= kind "handle") (velmar:pick name))
           ((= kind "point") (getpoint (strcat "\n" name ": ")))
           ((= kind "number") (getreal (strcat "\n" name ": ")))
           ((or (= kind "int16") (= kind "int32")) (getint (strcat "\n" name ": ")))
           ((= kind "boolean")
            (initget "Yes No")
            (= (getkword (strcat "\n" name "? [Yes/No] <No>: ")) "Yes"))
           ((= kind "variant") (velmar:number-or-text (getstring T (strcat "\n" name ": "))))
           ((getstring T (strcat "\n" name ": ")))))))
  (if (or (vl-catch-all-error-p answer) (and (null answer) (= kind "handle")))
    'velmar:cancelled
    answer))

(defun velmar:ask-all (names questions / answers answer)
  (while (and names (not (eq answer 'velmar:cancelled)))
    (setq answer (velmar:ask (car names) (car questions))
          answers (cons answer answers)
          names (cdr names)
          questions (cdr questions)))
  (if (eq answer 'velmar:cancelled) 'velmar:cancelled (reverse answers)))

(defun velmar:command (name names questions kinds / answers result)
  (setq answers (velmar:ask-all names questions))
  (if (eq answers 'velmar:cancelled)
    (princ "\nVelmar: cancelled.")
    (if (setq result (velmar:call name answers kinds))
      (progn (princ "\n") (princ result))))
  (princ))
)";

std::string_view in_words(ValueType type) {
  constexpr std::string_view words[] = {"none",  "variant", "boolean", "int16",
                                        "int32", "number",  "text"};
  static_assert(std::size(words) == static_cast<std::size_t>(ValueType::text) + 1);
  return words[static_cast<std::size_t>(type)];
}

/// How a command asks for a parameter: entities are picked, points are shown.
std::string_view question(const Parameter& parameter) {
  const std::string_view name = parameter.name;
  const bool of_text = parameter.type == ValueType::text || parameter.type == ValueType::variant;
  if (of_text && !parameter.optional && (name.ends_with("Hndl") || name == "Handle")) {
    return "handle";
  }
  if (parameter.type == ValueType::variant && name.ends_with("Point")) return "point";
  return in_words(parameter.type);
}

template <class Word>
std::string quoted_list(const Method& method, Word word) {
  std::string list = "(list";
  for (const Parameter& parameter : method.parameters()) {
    list.append(" \"").append(word(parameter)).append("\"");
  }
  return list + ")";
}

/// Parameters have a dollar sign before them: some bear the names of functions, such as sin.
std::string definitions(const Method& method) {
  std::string names;
  for (const Parameter& parameter : method.parameters()) {
    names.append(" $").append(parameter.name);
  }
  const std::string name(method.name);
  const std::string types = quoted_list(method, [](auto& p) { return in_words(p.type); });
  std::string text = "\n;; ";
  text.append(method.help)
      .append("\n(defun velmar:" + name + " (" + (names.empty() ? "" : names.substr(1)) + ")\n");
  text += "  (velmar:call \"" + name + "\" (list" + names + ") " + types + "))\n";
  text += "(defun c:Vm" + name + " ()\n  (velmar:command \"" + name + "\"\n    " +
          quoted_list(method, [](auto& p) { return p.name; }) + "\n    " +
          quoted_list(method, question) + "\n    " + types + "))\n";
  return text;
}

}  // namespace

std::string autolisp_glue(std::span<const Method> methods) {
  constexpr std::string_view mark = "@program_id";
  std::string text(head);
  for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos;) {
    text.replace(at, mark.size(), program_id);
  }
  for (const Method& method : methods) text += definitions(method);
  return text + "\n(princ \"\\nVelmar is loaded. Its commands begin with Vm.\")\n(princ)\n";
}

}  // namespace velmar::com
