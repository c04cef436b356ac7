<?php

declare(strict_types=1);

namespace Zorvel\Tools\Template;

use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagKind;

/** Which template includes which, over all templates of the folders. They are read when this is first asked for. */
final class Includes
{
    private const string DATA_PATH = '/^[\w-]+$|::/';

    /** @var ?array<string, list<array{Template, Tag}>> the including tags by the included file */
    private ?array $places = null;

    /** Whether the data names a file to include somewhere. */
    private bool $followsData = false;

    public function __construct(private readonly Folders $folders) {}

    /** Whether another template includes this one. */
    public function has(Template $template): bool
    {
        return $this->placesOf((string) realpath($template->file)) !== [];
    }

    /** Whether no template includes this one by its name, but one includes some file by a path in the data. */
    public function mayBeNamedByData(Template $template): bool
    {
        return !$this->has($template) && $this->followsData;
    }

    /** @return list<Tag> the loops inside which other templates include this one, directly or not */
    public function loopsAround(Template $template): array
    {
        $loops = [];
        $files = [(string) realpath($template->file)];
        for ($next = 0; $next < count($files); ++$next) {
            foreach ($this->placesOf($files[$next]) as [$includer, $tag]) {
                array_push($loops, ...$includer->nesting->loopsAround($tag));
                array_push($files, ...array_diff([(string) realpath($includer->file)], $files));
            }
        }

        return $loops;
    }

    /** @return list<array{Template, Tag}> */
    private function placesOf(string $file): array
    {
        $this->places ??= $this->findPlaces();

        return $this->places[$file] ?? [];
    }

    /** @return array<string, list<array{Template, Tag}>> */
    private function findPlaces(): array
    {
        $places = [];
        foreach (array_unique(array_merge(...array_map($this->folders->templatesAt(...), $this->folders->paths))) as $file) {
            $template = Template::fromFile($file);
            foreach ($this->includedBy($template) as $included => $tag) {
                $places[$included][] = [$template, $tag];
            }
        }

        return $places;
    }

    /** @return iterable<string, Tag> the including tags by the files */
    private function includedBy(Template $template): iterable
    {
        $folders = $this->folders->around($template->file);
        foreach (array_filter($template->tags, fn(Tag $tag): bool => $tag->kind === TagKind::Include) as $tag) {
            $file = $folders->find($tag->parameter);
            if ($file !== null) {
                yield (string) realpath($file) => $tag;
            } elseif (preg_match(self::DATA_PATH, $tag->parameter) === 1) {
                $this->followsData = true;
            }
        }
    }
}
