<?php

declare(strict_types=1);

namespace Zorvel\Strict;

use Zorvel\Syntax\Node;
use Zorvel\Syntax\Path;
use Zorvel\Syntax\Source;
use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagKind;

/**
 * Goes through a template's tags as the engine renders them, with the same data, and finds those that silently come
 * to nothing. For templates that the engine takes; files are looked for along include_path, as it does.
 */
final class Check
{
    /** What is no such path, as `{color:red}` in a style sheet, is meant to stay as it is. */
    private const string NAME = '/^[\w\x80-\xFF.*\[\]-]+(::[\w\x80-\xFF.*\[\]-]+)*$/';

    /** Names that are no files. */
    private const string WRAPPER = '~^(data:|[\w.+-]+://)~';

    /** @var array<string, Finding> by the place */
    private array $findings = [];

    /** @var array<string, ?list<Node>> by the template's name; null for one that is not there */
    private array $trees = [];

    /** The one that is gone through. */
    private string $template = '';

    private function __construct() {}

    /**
     * Each tag is found once, however often it is repeated.
     *
     * @param array<array-key, mixed> $data as the engine is given it, but with null for what is known to be nothing
     * @return list<Finding>
     */
    public static function findings(string $template, array $data): array
    {
        $check = new self();
        $check->enters($template, new Scope(new Found($data)));

        return array_values($check->findings);
    }

    /** @return bool false for a template that is not there */
    private function enters(string $template, Scope $scope): bool
    {
        $tree = $this->trees[$template] ??= self::tree($template);
        [$outer, $this->template] = [$this->template, $template];
        $this->nodes($tree ?? [], $scope);
        $this->template = $outer;

        return $tree !== null;
    }

    /** @return ?list<Node> */
    private static function tree(string $template): ?array
    {
        $source = Source::named($template);

        return $source === null ? null : Node::tree($source->text);
    }

    /** @param list<Node> $nodes */
    private function nodes(array $nodes, Scope $scope): void
    {
        foreach ($nodes as $node) {
            $kind = $node->tag->kind;
            match (true) {
                $kind === TagKind::Variable => $this->variable($node->tag, $scope),
                $kind === TagKind::Include => $this->include($node->tag, $scope),
                $kind->isFilter() => $this->filter($node->tag, $scope),
                $kind->isLoop() => $this->loop($node, $scope),
                default => $this->section($node, $scope),
            };
        }
    }

    /** Null is what is not there for the engine; what depends on a loop then comes to nothing, as it is meant to. */
    private function variable(Tag $tag, Scope $scope): void
    {
        $paths = array_map(static fn(string $path): Path => new Path($path), $tag->paths());
        $values = array_map(static fn(Path $path): mixed => $scope->find($path)?->value, $paths);
        $place = array_find_key($values, static fn(mixed $value): bool => $value !== null);
        if ($place !== null) {
            $this->refuseArray($tag, $tag->paths()[$place], $values[$place]);
        } elseif (!$tag->hasDefault() && self::isMeant($tag)) {
            $this->missing($tag, $paths, $scope);
        }
    }

    /** @param list<Path> $paths */
    private function missing(Tag $tag, array $paths, Scope $scope): void
    {
        $isNull = array_any($paths, static fn(Path $path): bool => $scope->find($path) !== null);
        $isInLoop = array_any($paths, static fn(Path $path): bool => $path->loop !== null);
        if (!$isNull || !$isInLoop) {
            $this->report($tag, implode(' or ', $tag->paths()) . ($isNull ? ' is null' : ' names nothing') . ', and there is no default');
        }
    }

    private function refuseArray(Tag $tag, string $path, mixed $value): void
    {
        if (is_array($value)) {
            $this->report($tag, "$path is no text, but of type array");
        }
    }

    private static function isMeant(Tag $tag): bool
    {
        return $tag->paths() !== [] && array_all($tag->paths(), static fn(string $path): bool => preg_match(self::NAME, $path) === 1);
    }

    private function include(Tag $tag, Scope $scope): void
    {
        $named = $scope->find(new Path($tag->parameter))?->value;
        $name = is_string($named) ? $named : $tag->parameter;
        if (preg_match(self::WRAPPER, $name) !== 1 && !$this->enters($name, $scope)) {
            $this->report($tag, "There is no file $name");
        }
    }

    private function filter(Tag $tag, Scope $scope): void
    {
        $found = $scope->find(new Path($tag->parameter));
        if ($found === null) {
            $this->report($tag, "$tag->parameter names nothing");
        } elseif ($found->value !== null && !is_string($found->value)) {
            $this->report($tag, "$tag->parameter is no text, but of type " . get_debug_type($found->value));
        }
    }

    private function loop(Node $node, Scope $scope): void
    {
        $path = $node->tag->paths()[0];
        $hasNum = $scope->find(new Path("$path::num"))?->value !== null;
        $walked = $hasNum ? "$path::num" : $path;
        $found = $scope->find(new Path($walked));
        if ($found === null) {
            $this->report($node->tag, "$path names nothing that can be repeated");
        } elseif (is_scalar($found->value)) {
            $this->report($node->tag, "$walked is no array, but of type " . get_debug_type($found->value));
        }
        foreach ($found?->elements() ?? [] as $key => $element) {
            $loop = new Loop($node->tag->loopName(), (string) $key, new Found($element));
            $this->nodes($node->children, $scope->inside($loop));
        }
    }

    private function section(Node $node, Scope $scope): void
    {
        $path = new Path($node->tag->paths()[0]);
        $isThere = $path->loop === null || $scope->loopOf($path) !== null;
        $isShown = self::isTrue($scope->find($path), $path, $node->tag->compareText() ?? '');
        if ($isThere && $isShown === ($node->tag->kind === TagKind::Optional)) {
            $this->nodes($node->children, $scope);
        }
    }

    private static function isTrue(?Found $found, Path $path, string $compared): bool
    {
        return match (true) {
            $found === null => false,
            $path->isKey => $found->value === $compared,
            $compared === '' => $found->isTrue(),
            default => $found->equals($compared),
        };
    }

    private function report(Tag $tag, string $what): void
    {
        $this->findings["$this->template:$tag->offset"] ??= new Finding($this->template, $tag, $what);
    }
}
