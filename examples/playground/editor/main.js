// The editor, which esbuild makes one file of. public/plain.js stands in for it where there is none.

import { basicSetup, EditorView } from 'codemirror'
import { php } from '@codemirror/lang-php'
import { syntaxHighlighting } from '@codemirror/language'
import { lintGutter, setDiagnostics } from '@codemirror/lint'
import { classHighlighter } from '@lezer/highlight'
import { template } from './tags.js'

const languages = { template: template(), data: php({ plain: true }) }

export function createEditor(parent, { label, language, text, onChange }) {
  const view = new EditorView({
    parent,
    doc: text,
    extensions: [
      basicSetup,
      languages[language],
      syntaxHighlighting(classHighlighter),
      lintGutter(),
      EditorView.lineWrapping,
      EditorView.contentAttributes.of({ 'aria-label': label }),
      EditorView.updateListener.of(update => update.docChanged && onChange()),
    ],
  })
  const offset = (line, column) => {
    const { from, to } = view.state.doc.line(Math.min(line, view.state.doc.lines))
    return Math.min(from + column - 1, to)
  }
  const diagnostic = ({ line, column, level, message }) => {
    const from = offset(line, column)
    const brace = view.state.sliceDoc(from, offset(line, Infinity)).indexOf('}')
    return { from, to: brace < 0 ? offset(line, Infinity) : from + brace + 1, severity: level, message }
  }
  return {
    element: view.dom,
    get text() { return view.state.doc.toString() },
    mark(findings) {
      view.dispatch(setDiagnostics(view.state, findings.map(diagnostic)))
    },
    goTo(line, column) {
      view.focus()
      view.dispatch({ selection: { anchor: offset(line, column) }, scrollIntoView: true })
    },
  }
}
