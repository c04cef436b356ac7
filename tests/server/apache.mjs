// Apache as a child of this process, and what the system tells about it.
import { spawn } from 'node:child_process'
import { once } from 'node:events'
import { readFileSync, readdirSync, rmSync, writeFileSync } from 'node:fs'
import net from 'node:net'
import { setTimeout as sleep } from 'node:timers/promises'
import { configure, root } from './site.mjs'

export async function freePort() {
  const server = net.createServer().listen(0, '127.0.0.1')
  await once(server, 'listening')
  const { port } = server.address()
  await new Promise(closed => server.close(closed))
  return port
}

/** Waits until something listens on PORT while PROGRAM runs. */
export async function listening(program, port) {
  for (;;) {
    if (program.exitCode !== null) throw new Error(`${program.spawnfile} ended at once, with ${program.exitCode}`)
    const socket = net.connect(port, '127.0.0.1')
    const connected = await Promise.race([once(socket, 'connect').then(() => true), once(socket, 'error')].map(p => p.catch(() => false)))
    socket.destroy()
    if (connected === true) return
    await sleep(20)
  }
}

export class Apache {
  /** INI is the folder of its php.ini. */
  static async start(ini = 'with') {
    const port = await freePort()
    configure(port, ini)
    rmSync(`${root}/error.log`, { force: true })
    const program = spawn('/usr/sbin/apache2', ['-d', root, '-f', `${root}/httpd.conf`, '-D', 'FOREGROUND'], { stdio: 'inherit' })
    process.on('exit', () => program.kill())
    await listening(program, port)
    return new Apache(program, port)
  }

  constructor(program, port) {
    this.program = program
    this.port = port
  }

  restartGracefully() {
    this.program.kill('SIGUSR1')
  }

  async stop() {
    this.program.kill()
    await once(this.program, 'exit')
  }

  get log() {
    return readFileSync(`${root}/error.log`, 'utf8')
  }

  get processes() {
    return readFileSync(`/proc/${this.program.pid}/task/${this.program.pid}/children`, 'utf8').trim().split(' ')
  }

  get state() {
    return { processes: this.processes, resident: this.resident, openFiles: this.openFiles }
  }

  /** Bytes of memory that are the processes' own and resident. */
  get resident() {
    return this.#status('RssAnon')
  }

  get peak() {
    return this.#status('VmHWM')
  }

  forgetPeak() {
    this.processes.forEach(pid => writeFileSync(`/proc/${pid}/clear_refs`, '5'))
  }

  get openFiles() {
    return sum(this.processes.map(pid => readdirSync(`/proc/${pid}/fd`).length))
  }

  /** Milliseconds of processor time that the processes' threads have had. */
  get processorTime() {
    const tasks = this.processes.flatMap(pid => readdirSync(`/proc/${pid}/task`).map(task => `/proc/${pid}/task/${task}`))
    return sum(tasks.map(task => Number(readFileSync(`${task}/schedstat`, 'utf8').split(' ')[0]))) / 1e6
  }

  #status(line) {
    const kilobytes = pid => Number(new RegExp(`^${line}:\\s+(\\d+) kB`, 'm').exec(readFileSync(`/proc/${pid}/status`, 'utf8'))[1])
    return sum(this.processes.map(kilobytes)) * 1024
  }
}

const sum = numbers => numbers.reduce((a, b) => a + b, 0)
