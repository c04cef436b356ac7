<?php

declare(strict_types=1);

namespace Zorvel;

use Closure;
use InvalidArgumentException;
use Zorvel\Syntax\BundledFault;
use Zorvel\Syntax\Pieces;
use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagKind;
use Zorvel\Syntax\TagReader;

/**
 * Templates in the PHP file that `zorvel bundle` has made: by name the text, in which included files stand in place.
 * It is the fast way to a page, and loads nothing else unless there is a fault.
 *
 * A piece is a run of the text's bytes from one file: where it begins in the text, the file, where in the file, and on
 * which line of it. An include that has stayed in the text opens its file while the page is made.
 *
 * @phpstan-type Piece array{int, string, int, int}
 * @phpstan-type Entry array{text: string, pieces: list<Piece>, spliced: array<array-key, true>, includes: bool}
 */
final readonly class Bundle
{
    /** @var array<string, Entry> by the template's name */
    private array $entries;

    /** @param ?Folders $folders for the includes that have stayed */
    public function __construct(private string $file, private ?Folders $folders)
    {
        is_file($file) || throw new InvalidArgumentException("No such bundle: $file");
        $entries = require realpath($file) ?: $file;
        is_array($entries) || throw new InvalidArgumentException("No bundle: $file");
        /** @var array<string, Entry> $entries */
        $this->entries = $entries;
    }

    /**
     * @param array<array-key, mixed> $data
     * @throws TemplateError
     */
    public function page(string $template, array $data): string
    {
        $entry = $this->entries[$template] ?? throw new TemplateError($template, "No such template in $this->file");
        if ($entry['spliced'] !== []) {
            self::checkNames(array_intersect_key($data, $entry['spliced']), $template);
        }
        $text = $entry['text'];
        try {
            return $entry['includes']
                ? $this->searched(static fn(): string => Engine::page($text, $data, true), $entry)
                : Engine::page($text, $data, true);
        } catch (EngineFailure $failure) {
            $fault = new BundledFault($failure->getMessage(), $text);
            throw $fault->inText($entry['pieces']) ?? ($entry['includes']
                ? $this->searched(static fn(): TemplateError => $fault->inFiles($template, $data), $entry)
                : $fault->inNoTag($template));
        }
    }

    /**
     * The engine takes an include's name from the data, when that has a text under it.
     *
     * @param array<array-key, mixed> $values the data under the names of the files that stand in the text
     */
    private static function checkNames(array $values, string $template): void
    {
        $name = array_find_key($values, static fn(mixed $value): bool => is_string($value));
        if ($name !== null) {
            throw new TemplateError($template, "The data has $name, by which the bundle includes a file: rename the one or the other");
        }
    }

    /**
     * @template T
     * @param Closure(): T $call
     * @param Entry $entry
     * @return T
     * @throws EngineFailure of the call
     * @throws TemplateError
     */
    private function searched(Closure $call, array $entry): mixed
    {
        return $this->folders === null ? throw self::stayed($entry) : $this->folders->searched($call);
    }

    /** @param Entry $entry */
    private static function stayed(array $entry): TemplateError
    {
        $tags = new TagReader()->read($entry['text']);
        $includes = array_values(array_filter($tags, static fn(Tag $tag): bool => $tag->kind === TagKind::Include));

        return new Pieces($entry['text'], $entry['pieces'])->error($includes[0], 'An include has stayed in the bundle: give the folders as well');
    }
}
