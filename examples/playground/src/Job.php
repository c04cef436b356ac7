<?php

declare(strict_types=1);

namespace Zorvel\Playground;

use Generator;
use UnexpectedValueException;
use Zorvel\TemplateError;
use Zorvel\Tools\Finding;
use Zorvel\Tools\Linter;
use Zorvel\Tools\Template\Folders;
use Zorvel\Tools\Template\Template;
use Zorvel\View;

/**
 * What a sandbox is sent, `{"files": {"page.tpl": "Hello {name}"}, "data": "['name' => 'Ann']"}`: templates, of which the
 * first is the page, and data as it is typed. It belongs into the child, after that has shut itself in.
 */
final class Job
{
    private const string NAME = '~^\w[\w.-]*(/\w[\w.-]*)*$~D';
    private const int MOST_CALLS = 10;
    private const int NANOSECONDS = 20_000_000;
    private const int MOST_FINDINGS = 100;

    /** @var list<string> */
    private array $files = [];

    /** @var ?array<array-key, mixed> null when it cannot be read */
    private ?array $data = null;

    /** @var array<string, true> */
    private array $warnings = [];

    public function __construct(private readonly string $json) {}

    /**
     * Prints the page, and tells about it as soon as something is known: what comes later may run into a limit.
     *
     * @return Generator<array<string, mixed>>
     */
    public function reports(): Generator
    {
        set_error_handler($this->warn(...));
        try {
            $this->unpack();
            yield ['microseconds' => $this->render()];
        } catch (InvalidData $error) {
            yield ['error' => ['message' => $error->getMessage(), 'file' => 'data', 'line' => $error->dataLine]];
        } catch (UnexpectedValueException $error) {
            yield ['error' => ['message' => $error->getMessage()]];
        } catch (TemplateError $error) {
            $place = ['file' => $error->getTemplate(), 'line' => $error->getTemplateLine()];
            yield ['error' => ['message' => $error->getReason()] + $place];
        }
        yield ['warnings' => array_keys($this->warnings)];
        yield ['findings' => $this->lint()];
    }

    private function warn(int $level, string $message): bool
    {
        return $this->warnings[$message] = true;
    }

    private function unpack(): void
    {
        $job = json_decode($this->json, true);
        if (!is_array($job) || !is_array($job['files'] ?? null) || $job['files'] === [] || !is_string($job['data'] ?? null)) {
            throw new UnexpectedValueException('There are no templates, or no data');
        }
        foreach ($job['files'] as $name => $text) {
            $this->write((string) $name, is_string($text) ? $text : throw new UnexpectedValueException("$name is no text"));
        }
        $this->data = Data::read($job['data']);
    }

    private function write(string $name, string $text): void
    {
        if (preg_match(self::NAME, $name) !== 1) {
            throw new UnexpectedValueException("$name is no name for a template");
        }
        is_dir(dirname($name)) || mkdir(dirname($name), recursive: true);
        file_put_contents($name, $text) === strlen($text) || throw new UnexpectedValueException("$name cannot be written");
        $this->files[] = $name;
    }

    /** Microseconds of the fastest of several calls: the first one of a process finds nothing in the machine's caches. */
    private function render(): float
    {
        $view = new View('.');
        $times = [];
        do {
            $start = hrtime(true);
            $page = $view->render($this->files[0], $this->data ?? []);
            $times[] = hrtime(true) - $start;
        } while (count($times) < self::MOST_CALLS && array_sum($times) < self::NANOSECONDS);
        echo $page;

        return min($times) / 1000;
    }

    /** @return list<Finding> */
    private function lint(): array
    {
        $linter = new Linter(new Folders(['.'], ['tpl']), $this->data);

        return array_slice($linter->lint(array_map(Template::fromFile(...), $this->files)), 0, self::MOST_FINDINGS);
    }
}
