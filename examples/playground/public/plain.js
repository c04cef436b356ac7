// The editor of a browser without the bundle: a plain text field with the interface of editor/main.js.

export function createEditor(parent, { label, text, onChange }) {
  const field = Object.assign(document.createElement('textarea'), { value: text, spellcheck: false })
  field.setAttribute('aria-label', label)
  field.addEventListener('input', onChange)
  parent.append(field)
  return {
    element: field,
    get text() { return field.value },
    mark() {},
    goTo(line, column) {
      const before = field.value.split('\n').slice(0, line - 1).join('\n').length
      const offset = before + (line > 1 ? 1 : 0) + column - 1
      field.focus()
      field.setSelectionRange(offset, offset)
    },
  }
}
