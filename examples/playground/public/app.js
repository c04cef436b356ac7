// Ties the panes together: what is typed goes to the server and into the address, the page and the findings come back.

import { decode, encode } from './state.js'

const { createEditor } = await import('/playground/editor.js').catch(() => import('./plain.js'))
const recipes = await (await fetch('/playground/recipes')).json()
const element = selector => document.querySelector(selector)
const create = (name, properties, ...children) => {
  const created = Object.assign(document.createElement(name), properties)
  created.append(...children)
  return created
}

let files = new Map() // editors by the names of their templates; the first makes the page
let data
let address // the one that shows what is open
let timer
let isRendering = false
let isChanged = false

const state = () => ({ files: Object.fromEntries([...files].map(([name, editor]) => [name, editor.text])), data: data.text })
const current = () => element('#files :checked').value

function open({ files: texts, data: text }) {
  element('#editors').replaceChildren()
  element('#data-editor').replaceChildren()
  files = new Map()
  for (const [name, text] of Object.entries(texts)) addFile(name, text)
  data = createEditor(element('#data-editor'), { label: 'Data', language: 'data', text, onChange })
  const [first] = files.keys()
  showFile(first)
  element(`[value=${/\.html?\.tpl$|^[^.]*\.tpl$/.test(first) ? 'look' : 'source'}]`).click()
  render()
}

function addFile(name, text) {
  files.set(name, createEditor(element('#editors'), { label: `Template ${name}`, language: 'template', text, onChange }))
}

function showFile(shown) {
  element('#files').replaceChildren(...[...files.keys()].map(name => create('label', {},
    create('input', { type: 'radio', name: 'file', value: name, checked: name === shown, onchange: () => switchTo(name) }),
    create('span', { textContent: name }))))
  switchTo(shown)
}

function switchTo(shown) {
  for (const [name, editor] of files) editor.element.hidden = name !== shown
  element('#remove').hidden = files.size === 1
}

function onChange() {
  clearTimeout(timer)
  timer = setTimeout(render, 300)
}

async function render() {
  isChanged = true
  if (isRendering) return
  isRendering = true
  while (isChanged) {
    isChanged = false
    const sent = state()
    show(await answer(sent))
    address = `#${await encode(sent)}`
    history.replaceState(null, '', address)
  }
  isRendering = false
}

async function answer(sent) {
  try {
    const headers = { 'Content-Type': 'application/json' }
    return await (await fetch('/playground/render', { method: 'POST', headers, body: JSON.stringify(sent) })).json()
  } catch {
    return { error: { message: 'The server does not answer' } }
  }
}

function show({ page, bytes, microseconds, error, warnings = [], findings = [] }) {
  const isFound = findings.some(({ level, file, line }) => level === 'error' && file === error?.file && line === error.line)
  const faults = error?.line && !isFound ? [{ level: 'error', column: 1, ...error }] : []
  showFindings([...faults, ...findings], hasScripts(page) ? [...warnings, 'The frame of the page runs no scripts'] : warnings)
  const place = [error?.file, error?.line].filter(Boolean).join(':')
  element('#error').textContent = error ? [place, error.message].filter(Boolean).join(': ') : ''
  element('#error').hidden = !error
  element('#page').classList.toggle('stale', Boolean(error))
  if (error) return
  element('iframe').srcdoc = page
  element('#source').textContent = page
  element('#figures').textContent = `${Math.round(microseconds)} µs, ${bytes.toLocaleString('en')} bytes`
}

function hasScripts(page = '') {
  const { scripts } = new DOMParser().parseFromString(page, 'text/html')
  return [...scripts].some(({ type }) => !type.endsWith('json'))
}

function showFindings(findings, warnings) {
  for (const [name, editor] of [...files, ['data', data]]) editor.mark(findings.filter(({ file }) => file === name))
  element('#findings').replaceChildren(...findings.map(listed), ...warnings.map(warning => create('li', { textContent: warning })))
}

function listed({ file, line, column, level, message }) {
  const editor = file === 'data' ? data : files.get(file)
  const goTo = () => {
    if (editor !== data) showFile(file)
    editor?.goTo(line, column)
  }
  return create('li', { className: level }, create('button', { textContent: `${file}:${line}`, onclick: goTo }), ` ${message}`)
}

async function openAddress() {
  if (location.hash === address) return
  const sent = await decode(location.hash.slice(1)).catch(() => null)
  element('#recipes').value = sent ? '' : 0
  open(sent ?? recipes[0])
}

element('#recipes').append(...recipes.map(({ name }, i) => create('option', { value: i, textContent: name })))
element('#recipes').onchange = ({ target }) => target.value && open(recipes[target.value])
element('#add').onclick = () => {
  const name = prompt('The name by which a template includes it', 'part.tpl')
  if (!name || files.has(name)) return
  addFile(name, '')
  showFile(name)
  files.get(name).goTo(1, 1)
}
element('#remove').onclick = () => {
  const name = current()
  files.get(name).element.remove()
  files.delete(name)
  showFile(files.keys().next().value)
  render()
}
element('#share').onclick = async ({ target }) => {
  await navigator.clipboard.writeText(location.href)
  target.textContent = 'Copied'
  setTimeout(() => { target.textContent = 'Copy link' }, 2000)
}
for (const choice of document.querySelectorAll('[name=view]')) {
  choice.onchange = () => { element('#page').dataset.view = choice.value }
}
addEventListener('hashchange', openAddress)
openAddress()
