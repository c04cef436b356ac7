// The language of templates: HTML, read as if the tags were not there, and the tags, marked wherever they stand.

import { html, htmlLanguage } from '@codemirror/lang-html'
import { Language, LanguageSupport } from '@codemirror/language'
import { Decoration, MatchDecorator, ViewPlugin } from '@codemirror/view'
import { Parser } from '@lezer/common'

const keyword = 'include|!?optional|r?dynamic|/optional|/r?dynamic|addslashes|htmlentities|htmlspecialchars|rawurlencode'
const regexp = new RegExp(`\\{\\{|\\{(?![ \\t\\r\\n{])(?<word>${keyword})?(?<rest>(?:[^{}]|\\{.)*?)(?<text>'(?:[^{}]|\\{.)*)?\\}`, 'g')
const mark = name => Decoration.mark({ class: `tag-${name}` })
const marks = { escape: mark('escape'), tag: mark('tag'), word: mark('word'), text: mark('text') }

class AroundTags extends Parser {
  createParse(input) {
    const around = []
    let from = 0
    for (const { index, 0: tag } of input.read(0, input.length).matchAll(regexp)) {
      around.push({ from, to: index })
      from = index + (tag === '{{' ? 1 : tag.length)
    }
    around.push({ from, to: input.length })
    return htmlLanguage.parser.startParse(input, [], around.filter(({ from, to }) => from < to))
  }
}

function decorate(add, from, to, { groups: { word = '', rest, text } }) {
  if (rest === undefined) return add(from, to, marks.escape)
  add(from, to, marks.tag)
  if (word) add(from + 1, from + 1 + word.length, marks.word)
  if (text) add(to - 1 - text.length, to - 1, marks.text)
}

const matcher = new MatchDecorator({ regexp, decorate })

const tags = ViewPlugin.fromClass(class {
  constructor(view) { this.decorations = matcher.createDeco(view) }
  update(update) { this.decorations = matcher.updateDeco(update, this.decorations) }
}, { decorations: plugin => plugin.decorations })

const language = new Language(htmlLanguage.data, new AroundTags())
export const template = () => new LanguageSupport(language, [html({ autoCloseTags: false }).support, tags])
