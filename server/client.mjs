// The load: many requests at once over kept connections, bounded in number and time, only to 127.0.0.1.
import { randomBytes } from 'node:crypto'
import http from 'node:http'

const TIMEOUT = 30_000

export const freshToken = () => randomBytes(6).toString('hex')

export class Client {
  constructor(port, connections) {
    this.port = port
    this.connections = connections
    this.agent = new http.Agent({ keepAlive: true, maxSockets: connections })
  }

  /** The answer, or an error with `unanswered`: was the connection lost before any of the answer came? */
  ask({ host, path, form }) {
    return new Promise((answered, failed) => {
      const started = performance.now()
      const request = this.#open(host, path, form)
      request.on('error', error => failed(Object.assign(error, { unanswered: error.code === 'ECONNRESET' && !request.res })))
      request.on('response', response => {
        let body = ''
        response.setEncoding('latin1')
        response.on('data', text => { body += text })
        response.on('error', failed)
        response.on('end', () => answered({
          status: response.statusCode, type: response.headers['content-type'], body, ms: performance.now() - started,
        }))
      })
      request.end(form)
    })
  }

  /** Asks and hangs up: at once, in the midst of the answer, or somewhere between. */
  abandon({ host, path, form }) {
    return new Promise(gone => {
      const request = this.#open(host, path, form)
      request.on('error', () => {})
      request.on('close', gone)
      request.on('response', () => request.destroy())
      request.end(form, () => setTimeout(() => request.destroy(), Math.random() * 5))
    })
  }

  #open(host, path, form) {
    const headers = { host, ...(form && { 'content-type': 'application/x-www-form-urlencoded' }) }
    const request = http.request({
      host: '127.0.0.1', port: this.port, path, headers, agent: this.agent, method: form ? 'POST' : 'GET',
    })
    return request.setTimeout(TIMEOUT, () => request.destroy(new Error(`no answer within ${TIMEOUT / 1000} s`)))
  }

  /** Calls STEP on every connection, again and again, until it is time. */
  async load(milliseconds, step) {
    const end = performance.now() + milliseconds
    const steps = async () => { while (performance.now() < end) await step(this) }
    await Promise.all(Array.from({ length: this.connections }, steps))
  }

  close() {
    this.agent.destroy()
  }
}
